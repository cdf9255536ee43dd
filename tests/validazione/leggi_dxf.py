#!/usr/bin/env python3
"""Reads every DXF of a folder with an independent library and compares it with the DIS beside it:
the same lines, circles, arcs and texts at the same coordinates. Numbers are finite, without commas,
and the file ends in EOF."""
import math
import pathlib
import sys

import ezdxf
from ezdxf import recover


def leggi_dis(percorso):
    righe = iter(percorso.read_bytes().decode("cp1252").splitlines())
    n = lambda: [float(x) for x in next(righe).split()]
    for _ in range(4):
        next(righe)
    xy = [n()[:2] for _ in range(int(n()[0]))]
    for _ in range(int(n()[0])):
        next(righe)
    linee = [n() for _ in range(int(n()[0]))]
    testi = []
    for _ in range(int(n()[0])):
        a, b, t = n(), n(), next(righe)
        testi.append((xy[int(a[0])], b[1], a[2], t))
    archi = []
    for _ in range(int(n()[0])):
        a = n()
        n()
        archi.append([xy[int(k)] for k in a])
    return [(xy[int(l[0])], xy[int(l[1])], int(l[3])) for l in linee], testi, archi


def r(*v):
    return tuple(round(x, 3) + 0.0 for x in v)


def verifica(dxf):
    testo = dxf.read_text("ascii")
    assert testo.rstrip().endswith("EOF"), "no EOF"
    valori = testo.split("\n")[1::2]
    codici = [int(c) for c in testo.split("\n")[0::2] if c]
    for codice, valore in zip(codici, valori):
        if 10 <= codice <= 59:
            assert "," not in valore and math.isfinite(float(valore)), valore
    doc, controllo = recover.readfile(dxf)
    assert not controllo.errors, controllo.errors
    linee, testi, archi = leggi_dis(dxf.with_suffix(".dis"))
    msp = doc.modelspace()
    lette = sorted(r(*e.dxf.start.vec2, *e.dxf.end.vec2) for e in msp.query("LINE"))
    assert lette == sorted(r(*a, *b) for a, b, _ in linee), "lines"
    letti = sorted(
        (*r(*e.dxf.insert.vec2, e.dxf.height, e.dxf.get("rotation", 0)), e.dxf.text)
        for e in msp.query("TEXT")
    )
    attesi = sorted((*r(*p, h, a), t.replace("]", "%%c", 1)) for p, h, a, t in testi)
    assert letti == attesi, "texts"
    cerchi = [a for a in archi if r(*a[1]) == r(*a[3])]
    assert sorted(r(*e.dxf.center.vec2, e.dxf.radius) for e in msp.query("CIRCLE")) == sorted(
        r(*a[0], math.dist(a[0], a[1])) for a in cerchi
    ), "circles"
    estremi = lambda c, raggio, gradi: (
        c[0] + raggio * math.cos(math.radians(gradi)),
        c[1] + raggio * math.sin(math.radians(gradi)),
    )
    letti = sorted(
        (*e.dxf.center.vec2, *estremi(e.dxf.center, e.dxf.radius, e.dxf.start_angle),
         *estremi(e.dxf.center, e.dxf.radius, e.dxf.end_angle))
        for e in msp.query("ARC")
    )
    attesi = sorted((*a[0], *a[1], *a[3]) for a in archi if r(*a[1]) != r(*a[3]))
    assert len(letti) == len(attesi), "number of arcs"
    for a, b in zip(letti, attesi):
        assert all(abs(x - y) < 1e-3 for x, y in zip(a, b)), (a, b)
    if "LTYPE" in testo:
        for e in msp.query("LINE"):
            assert e.dxf.linetype in doc.linetypes, e.dxf.linetype
    return len(linee) + len(testi) + len(archi)


def main():
    file = sorted(pathlib.Path(sys.argv[1]).glob("*.dxf"))
    assert file, "no DXF"
    for f in file:
        try:
            print(f.name, verifica(f), "entities")
        except AssertionError as e:
            sys.exit(f"{f.name}: {e}")


main()
