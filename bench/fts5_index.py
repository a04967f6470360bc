"""Builds a SQLite FTS5 index of a corpus's raw texts, one row per text (ARCHIVE_BRUT/<name>.txt,
read as CP1252), into a database file; the reference that the exploration index is measured
against. Usage: python3 bench/fts5_index.py REPERTOIRE.txt base.sqlite"""
import os
import sqlite3
import sys

liste, base = sys.argv[1], sys.argv[2]
racine = os.path.dirname(os.path.abspath(liste))
for suffixe in ("", "-journal", "-wal"):
    if os.path.exists(base + suffixe):
        os.remove(base + suffixe)
c = sqlite3.connect(base)
c.execute("CREATE VIRTUAL TABLE textes USING fts5(nom, texte)")
with open(liste, encoding="cp1252") as f:
    noms = [n.strip() for n in f if n.strip()]
with c:
    for nom in noms:
        with open(os.path.join(racine, "ARCHIVE_BRUT", nom + ".txt"), encoding="cp1252", errors="replace") as t:
            c.execute("INSERT INTO textes VALUES (?, ?)", (nom, t.read()))
print(c.execute("SELECT count(*) FROM textes WHERE textes MATCH 'les'").fetchone()[0], "textes avec les")
c.close()
