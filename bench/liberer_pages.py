#!/usr/bin/env python3
"""Releases from the page cache the files of a folder (written and synced before), so that the
memory they held goes back to the free lists.

Used by the benchmarks between runs that keep the trees of earlier runs rather than delete them.
This machine is a virtual machine: a page of memory it has never used before costs the host's
fault at its first write, some 2 s of system time per GB (dd of 1 GB of zeros: 2.3 s into such
memory, 0.35 s into memory used and freed before). A run that writes 1 GB while the earlier trees
still hold the memory it would reuse is charged for that, whatever the program does; a run after a
deletion is not. Releasing the pages puts both on the same footing without deleting anything.
Usage: liberer_pages.py FOLDER...
"""
import os
import sys

n = 0
for dossier in sys.argv[1:]:
    for racine, _, fichiers in os.walk(dossier):
        for nom in fichiers:
            try:
                fd = os.open(os.path.join(racine, nom), os.O_RDONLY)
            except OSError:
                continue
            try:
                os.posix_fadvise(fd, 0, 0, os.POSIX_FADV_DONTNEED)
                n += 1
            finally:
                os.close(fd)
print(f"{n} fichiers retirés du cache")
