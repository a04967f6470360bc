#!/usr/bin/env python3
"""Tests of the mapping of tools/generer_olbrin.py (run by ctest)."""
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import generer_olbrin as g  # noqa: E402


def cp(texte):
    return texte.encode("cp1252")


class CodesDeLemme(unittest.TestCase):
    def test_codes(self):
        self.assertEqual(g.lemme_code(b"chevaux", b"cheval"), b"2l")
        self.assertEqual(g.lemme_code(b"aimait", b"aimer"), b"3er")
        self.assertEqual(g.lemme_code(b"table", b"table"), b"")
        # The form is a beginning of the lemma: nothing is cut.
        self.assertEqual(g.lemme_code(b"porte", b"porter"), b"0r")
        self.assertEqual(g.lemme_code(b"est", cp("être")), cp("3être"))
        self.assertEqual(g.lemme_code(b"des", b"de"), b"1")
        self.assertEqual(g.lemme_code(b"yeux", cp("oeil")), cp("4oeil"))
        self.assertEqual(g.lemme_reste(b"x4", b"4x4"), b"4x4")

    def test_pliage_et_classes(self):
        self.assertEqual(g.plier(cp("ÉCOSSE Œuvre")), cp("écosse œuvre"))
        self.assertEqual(g.classe_initiale(cp("zèbre")), 11)
        self.assertEqual(g.classe_initiale(cp("œuf")), 15)
        self.assertEqual(g.classe_initiale(cp("ûber")), 0)
        self.assertEqual(g.classe_initiale(b"12"), 0)
        self.assertEqual(g.en_cp1252("aujourd\u2019hui"), b"aujourd'hui")
        self.assertIsNone(g.en_cp1252("ŝ"))

    def test_etiquettes(self):
        self.assertEqual(g.nettoyer(":V1_it_q__a:Ip:Sp:1s:3s/*"), ["V1_it_q__a", "Ip", "Sp", "1s", "3s"])
        self.assertEqual(g.nettoyer(":V1_it_q__a:If:3p!;É/M"), ["V1_it_q__a", "If", "3p"])
        self.assertEqual(g.nettoyer(":MP:e:i#C"), ["MP", "e", "i"])


class Fusions(unittest.TestCase):
    def test_personnes_et_temps(self):
        # aime: 1s 3s present indicative and subjunctive, 2s imperative.
        self.assertEqual(g.flexions_verbe({(1, "a"), (3, "a"), (1, "e"), (3, "e"), (2, "i")}), ["8k", "2i"])
        # finis: 1s 2s present and simple past, 2s imperative.
        self.assertEqual(g.flexions_verbe({(1, "a"), (2, "a"), (1, "c"), (2, "c"), (2, "i")}), ["7j", "2i"])
        # Only exact merges: 1a and 3e stay apart.
        self.assertEqual(g.flexions_verbe({(1, "a"), (3, "e")}), ["1a", "3e"])
        self.assertEqual(g.flexions_verbe({(6, "a"), (6, "e"), (6, "g")}), ["6t"])
        self.assertEqual(g.flexions_verbe({(3, "b")}), ["3b"])
        self.assertEqual(g.resumer_temps("aceig"), ["t", "c", "i"])

    def test_genre_et_nombre(self):
        self.assertEqual(g.resumer_genre_nombre(g.deplier("e", "i")), ["xx"])
        self.assertEqual(g.resumer_genre_nombre(g.deplier("e", "s")), ["xs"])
        self.assertEqual(g.resumer_genre_nombre(g.deplier("m", "i")), ["mx"])
        self.assertEqual(g.resumer_genre_nombre({("m", "s"), ("f", "s"), ("f", "p")}), ["xs", "fp"])
        self.assertEqual(g.resumer_genre_nombre(set()), [])

    def test_lectures_d_une_forme(self):
        verbe = g.Lemme()
        verbe.finies = {(1, "a"), (3, "a"), (1, "e"), (3, "e"), (2, "i")}
        nom = g.Lemme()
        nom.noms = {("f", "s")}
        self.assertEqual(g.lectures_forme(b"porte", {b"porte": nom, b"porter": verbe}, False),
                         [".SF:s", "0r.V:8k", "0r.V:2i"])
        # Noun and adjective readings of one lemma become one R reading.
        rouge = g.Lemme()
        rouge.noms = {("m", "s")}
        rouge.adjectifs = g.deplier("e", "s")
        self.assertEqual(g.lectures_forme(b"rouge", {b"rouge": rouge}, True), [".R:xs", ".N"])
        # Participles of one lemma are joined by "+"; an invariable one is yms.
        pris = g.Lemme()
        pris.participes = g.deplier("m", "i")
        self.assertEqual(g.lectures_forme(b"pris", {b"prendre": pris}, False), ["2endre.V:ymx"])
        tout = g.Lemme()
        tout.participes = g.deplier("e", "i")
        self.assertEqual(g.lectures_forme(b"vu", {b"voir": tout}, False), ["1oir.V:ymx+yfs+yfp"])
        # Fixed function words: the contracted article with the lemma of the article it holds.
        self.assertEqual(g.lectures_forme(b"du", {b"du": g.Lemme()}, False), ["1e.BX", "2le.DÂ:ms", ".DMS:ms"])


class MajusculesEnE(unittest.TestCase):
    def test_graphies_et_lectures(self):
        # The spellings that the case normaliser gives a capital "E".
        for forme, cle in (("elles", "élles"), ("erreur", "érreur"), ("enivrer", "énivrer"), ("etat", "état"),
                           ("etre", "être"), ("eau", "eau"), ("eaux", "éaux"), ("elle", "elle"), ("entre", "entre"),
                           ("est", "est"), ("echo", "écho"), ("eo", "éo"), ("e", "e"), ("aller", "aller")):
            self.assertEqual(g.majuscule_pliee(cp(forme)), cp(cle), forme)
        # Lemma codes cut the whole key, so that the raw form decodes to the same lemma.
        self.assertEqual(g.lectures_majuscule(b"elles", [".P"]), ["5elles.P"])
        self.assertEqual(g.lectures_majuscule(b"erreurs", ["1.SF:p", "0r.V:2i"]),
                         ["7erreur.SF:p", "7erreursr.V:2i"])
        self.assertEqual(g.lectures_majuscule(b"ecrit", ["1re.V:3a", ".N"]),
                         ["5ecrire.V:3a", "5ecrit.N"])


class CoucheCourante(unittest.TestCase):
    def ecrire(self, texte):
        import tempfile
        d = tempfile.mkdtemp()
        chemin = os.path.join(d, "courant.txt")
        with open(chemin, "w", encoding="utf-8") as f:
            f.write(texte)
        return chemin

    def test_fichier_livre(self):
        # The shipped layer loads, and its lines for the everyday words drop the rare homographs.
        c = g.lire_courant(g.COURANT)
        self.assertEqual(c[b"et"], [".O"])
        self.assertEqual(c[b"a"], ["0voir.V:3a"])
        self.assertEqual(c[cp("après")], [".BX"])
        self.assertNotIn(b"est", c)  # settled by the context rule, kept ambiguous
        for forme, lectures in c.items():
            for lecture in lectures:
                self.assertNotIn(".N", lecture, forme)

    def test_lemmes_des_lignes_courantes(self):
        # Every lemma code of the layer cuts its form into a word: a miscounted code
        # ("3oir" for "su") would give a lemma such as "oir" or one with a digit.
        import re
        mot = re.compile(r"^[a-zà-ÿœ'-]+$")
        for forme, lectures in g.lire_courant(g.COURANT).items():
            f = forme.decode("cp1252")
            for lecture in lectures:
                code = lecture.partition(".")[0]
                chiffres = code[:len(code) - len(code.lstrip("0123456789"))]
                lemme = f[:len(f) - int(chiffres)] + code[len(chiffres):] if chiffres else (code or f)
                self.assertRegex(lemme, mot, "%s,%s" % (f, lecture))
        c = g.lire_courant(g.COURANT)
        self.assertEqual(c[b"su"], ["1avoir.V:yms"])  # savoir
        self.assertEqual(c[cp("règles")], ["1.SF:p"])

    def test_releve_de_la_revue(self):
        # The record of the review lists the 1,000 ranked forms in rank order, and says
        # "courante" exactly for the forms that the layer gives.
        chemin = os.path.join(os.path.dirname(g.COURANT), "dico_courant_revue.txt")
        c = g.lire_courant(g.COURANT)
        rangs = []
        with open(chemin, encoding="utf-8") as f:
            for ligne in f:
                if ligne.startswith("#"):
                    continue
                rang, compte, forme, verdict, lectures = ligne.rstrip("\n").split("\t")
                rangs.append((int(rang), int(compte)))
                cle = g.plier(forme.encode("cp1252", "replace"))
                self.assertIn(verdict, ("courante", "générée", "absente"), ligne)
                self.assertEqual(verdict == "courante", cle in c, ligne)
                self.assertEqual(verdict == "absente", lectures == "", ligne)
                if verdict == "courante":
                    self.assertEqual(lectures, "/".join(c[cle]), ligne)
        self.assertEqual([r for r, _ in rangs], list(range(1, 1001)))
        self.assertEqual([n for _, n in rangs], sorted((n for _, n in rangs), reverse=True))

    def test_lignes_lues_et_erreurs(self):
        c = g.lire_courant(self.ecrire("# commentaire\n\nÉté,3être.V:yms\ndans,.B\n"))
        self.assertEqual(c, {cp("été"): ["3être.V:yms"], b"dans": [".B"]})
        for texte, motif in (("et\n", "ligne 1 : « forme,lecture"),
                             ("x,.O\nmais,O\n", "ligne 2 : lecture mal formée « O »"),
                             ("a,.Z\n", "lecture mal formée « .Z »"),
                             ("un,5n.DMS:ms\n", "le code « 5n » coupe plus que la forme"),
                             ("si,.A\nSi,.CS\n", "ligne 2 : forme « Si » déjà donnée"),
                             ("ŝ,.A\n", "hors Windows-1252"),
                             ("x," + "/".join([".A"] * 11) + "\n", "11 lectures (limite 10)")):
            with self.assertRaises(ValueError) as e:
                g.lire_courant(self.ecrire(texte))
            self.assertIn(motif, str(e.exception))


if __name__ == "__main__":
    unittest.main()
