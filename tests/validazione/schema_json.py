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
