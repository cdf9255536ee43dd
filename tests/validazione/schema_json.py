#!/usr/bin/env python3
"""The objects of `tk07 verifica --json` against docs/verifica.schema.json, by an independent validator.

Arguments: program, schema, directory tree. Every key that the schema requires is taken away once and
a foreign one added, so that a schema that lets everything pass fails here.
"""
import copy
import glob
import json
import subprocess
import sys

import jsonschema


def oggetti(programma, albero, *argomenti):
    r = subprocess.run([programma, "--diroot", albero, "verifica", "--json", *argomenti],
                       capture_output=True, text=True)
    return [json.loads(riga) for riga in r.stdout.splitlines()]


def confronta_esiti(o):
    """Rows of the findings against the verdicts and the stresses of the same object; how many."""
    peggio = None
    ordine = ("Bulloni", "Piastra 1", "Piastra 2", "Saldature S1", "Saldature S2")  # of equal ratios the first
    for k, s in enumerate(o["sestetti"], 1):
        righe = [r for r in o["esiti"] if r["sestetto"] == k]
        assert s["verificato"] == all(r["passa"] for r in righe), (o["file"], k)
        for r in righe:
            x = float("inf") if r["rapporto"] is None else r["rapporto"]
            assert r["passa"] == (x <= 1) == (r["limite"] is not None and r["domanda"] <= r["limite"]), r
            if r["passa"] and r["domanda"]:
                assert abs(x - r["domanda"] / r["limite"]) <= 1e-12, r
            j = r["elemento"] - 1
            if r["controllo"] in ("Co-1", "Co-2"):
                assert r["domanda"] == s[r["controllo"].replace("-", "")][j], r
            elif r["controllo"] in ("SEq-1", "SEq-2", "S_id", "|S|+|TauPe|"):
                p, pe = max(abs(s["S_prp"][0][j]), abs(s["S_prp"][1][j])), s["Tau_pe"][j]
                somma = r["controllo"] in ("SEq-2", "|S|+|TauPe|")
                vero = p + abs(pe) if somma else (p * p + s["Tau_pa"][j] ** 2 + pe * pe) ** 0.5
                assert abs(r["domanda"] - vero) <= 1e-9 * (1 + vero), r
                assert (r["famiglia"] == "Saldature S2") == (4 <= j % 15 + 1 <= 9), r
        x, r = max(((float("inf") if r["rapporto"] is None else r["rapporto"], r) for r in righe),
                   key=lambda q: (q[0], -ordine.index(q[1]["famiglia"])))
        if peggio is None or x > peggio[0]:
            peggio = x, r
        saldature = {r["elemento"] for r in righe if r["famiglia"].startswith("Sald")}
        assert saldature == {j + 1 for j in range(30) if o["LungSald"][j % 15] > 0.0001}, saldature
    if peggio is not None:
        governa = {c: peggio[1][c] for c in ("famiglia", "controllo", "elemento", "sestetto")}
        assert o["rapporto"] == peggio[1]["rapporto"], o["file"]
        assert o["governa"] == governa, (o["governa"], governa)
    return len(o["esiti"])


def main():
    programma, schema, albero = sys.argv[1:4]
    with open(schema, encoding="utf-8") as f:
        schema = json.load(f)
    jsonschema.Draft202012Validator.check_schema(schema)
    valida = jsonschema.Draft202012Validator(schema)
    file = sorted(glob.glob(albero + "/lavori/esempi/*.tk7"))
    assert len(file) >= 13, file
    tutti = oggetti(programma, albero, *file)
    tutti += oggetti(programma, albero, "--metodo", "ta", *file[:3])
    tutti += oggetti(programma, albero, "--fermati", file[9])  # stopped at a spacing rule
    tutti += oggetti(programma, albero, file[0] + ".manca")
    assert len(tutti) == len(file) + 5
    esiti = oggetti(programma, albero, "--esiti", *file) + oggetti(programma, albero, "--esiti", "--metodo", "ta", *file)
    righe = sum(confronta_esiti(o) for o in esiti)
    assert righe > 2000, righe
    tutti += esiti
    assert {o["metodo"] for o in tutti} == {"SLU", "TA", None}
    assert any(o["interrotta"] and o["metodo"] == "SLU" for o in tutti)
    for o in tutti:
        valida.validate(o)
    guasti = 0
    for o in (tutti[0], next(x for x in tutti if x["metodo"] == "TA")):
        for posto in (lambda x: x, lambda x: x["sestetti"][0]):
            for chiave in list(posto(o)):
                storto = copy.deepcopy(o)
                del posto(storto)[chiave]
                assert not valida.is_valid(storto), "without " + chiave
                storto = copy.deepcopy(o)
                posto(storto)[chiave] = {"altro": 1}
                assert not valida.is_valid(storto), "other type of " + chiave
                guasti += 2
            storto = copy.deepcopy(o)
            posto(storto)["estranea"] = 1
            assert not valida.is_valid(storto)
    print(len(tutti), "objects valid,", guasti, "broken ones refused")


main()
