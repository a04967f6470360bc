#!/usr/bin/env python3
"""Builds a reproducible flat map file (_PROJ) and globe file (_PLANISPH_) of N items, as the
projections write them (CP1252, CR LF, decimal commas), for bench/carte.sh.
Usage: construire_cartes.py N DOSSIER"""
import math
import random
import sys

n = int(sys.argv[1])
dossier = sys.argv[2]
rng = random.Random(20261124)
syllabes = ["ma", "ré", "to", "lu", "pé", "chi", "vo", "nes", "dra", "qué", "bo", "lin", "sa", "tor"]


def nom(i):
    return "".join(rng.choice(syllabes) for _ in range(rng.randint(2, 4))) + str(i)


colonnes = max(1, n // 50)
lignes = n - colonnes
noms = [nom(i) for i in range(n)]


def virgule(x):
    s = ("%.3f" % x).rstrip("0").rstrip(".")
    return s.replace(".", ",")


with open(f"{dossier}/coli_PROJ12.txt", "wb") as f:
    out = [f"{colonnes}/{lignes}"]
    for i in range(n):
        # A cloud denser at the centre, as analyses give.
        x = min(9800, max(200, int(rng.gauss(5000, 1800))))
        y = min(9800, max(200, int(rng.gauss(5000, 1500))))
        out.append(f"{noms[i]}\t{x}\t{y}\t{rng.choice([0, 0, 0, 1, 2])}\t{rng.choice([0, 0, 0, 1, 2])}")
    out += ["**1¤32,5", "**2¤21,25"] + [f"***{virgule(40 / (k + 1))}" for k in range(25)] + ["###12,5", "###", "###0"]
    f.write(("\r\n".join(out) + "\r\n").encode("cp1252"))

with open(f"{dossier}/_PLANISPH_123.txt", "wb") as f:
    out = [f"&{colonnes}/{lignes}"]
    for i in range(n):
        lon = rng.uniform(0, 360)
        lat = max(-89.9, min(89.9, rng.gauss(0, 30)))
        d = abs(rng.gauss(0.5, 0.3))
        c = [abs(rng.gauss(0, 1.5 / n)) for _ in range(3)]
        out.append("\t".join([noms[i], virgule(lon), virgule(lat), virgule(d)] + [virgule(x * 1000) for x in c]))
    out += [f"***{virgule(40 / (k + 1))}" for k in range(30)]
    f.write(("\r\n".join(out) + "\r\n").encode("cp1252"))
