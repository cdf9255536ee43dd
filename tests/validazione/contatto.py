"""Contact without tension between two plates held by bolts.

The field of stress is a plane s(x, y) = c1 y + c2 x + c3, tension positive, all moduli 1. The contact
rectangle answers only where s < 0; a bolt answers where s > 0, since inside the compressed area its
own area is taken out of the plate and put back as bolt. A bolt outside the rectangle answers always.

Equilibrium R(c) = f is the condition of minimum of the convex energy
    F(c) = 1/2 integral over the rectangle of min(s, 0)^2 + 1/2 sum A max(s, 0)^2 - f . c
whose second derivative is the matrix of the compressed area and of the bolts at work. The minimum is
found by damped Newton steps with a line search on F, the compressed area by Sutherland-Hodgman, its
moments by splitting it in triangles. f = (moment that pairs with y, with x, normal force), moments
about the origin of the coordinates.
"""

from __future__ import annotations

import math
from dataclasses import dataclass


class NonEquilibrato(Exception):
    """No plane balances the loads, or more than one does."""


@dataclass
class Bullone:
    x: float
    y: float
    area: float


def semipiano(poligono: list, piano) -> list:
    """Part of a convex polygon where the plane is not positive (Sutherland-Hodgman)."""
    c1, c2, c3 = piano
    tenuto = []
    for (xa, ya), (xb, yb) in zip(poligono, poligono[1:] + poligono[:1]):
        sa, sb = c1 * ya + c2 * xa + c3, c1 * yb + c2 * xb + c3
        if sa <= 0:
            tenuto.append((xa, ya))
        if sa * sb < 0:
            t = sa / (sa - sb)
            tenuto.append((xa + t * (xb - xa), ya + t * (yb - ya)))
    return tenuto


def momenti(poligono: list) -> list:
    """Matrix of the integrals of (y, x, 1) times (y, x, 1) over a convex polygon, by triangles.

    Over a triangle of area A the mean of p q is (sum p sum q + sum p q) / 12 and of p is sum p / 3,
    the sums being over the three vertices.
    """
    M = [[0.0] * 3 for _ in range(3)]
    for n in range(1, len(poligono) - 1):
        (xa, ya), (xb, yb), (xc, yc) = poligono[0], poligono[n], poligono[n + 1]
        A = abs((xb - xa) * (yc - ya) - (xc - xa) * (yb - ya)) / 2
        Sx, Sy = xa + xb + xc, ya + yb + yc
        M[0][0] += A * (Sy * Sy + ya * ya + yb * yb + yc * yc) / 12
        M[0][1] += A * (Sx * Sy + xa * ya + xb * yb + xc * yc) / 12
        M[1][1] += A * (Sx * Sx + xa * xa + xb * xb + xc * xc) / 12
        M[0][2] += A * Sy / 3
        M[1][2] += A * Sx / 3
        M[2][2] += A
    M[1][0], M[2][0], M[2][1] = M[0][1], M[0][2], M[1][2]
    return M


def risolvi(M: list, f) -> list:
    """Linear system by Gauss with full row pivoting; NonEquilibrato when the matrix is singular."""
    n = len(f)
    righe = [list(M[k]) + [f[k]] for k in range(n)]
    grande = max(abs(v) for r in M for v in r)
    for k in range(n):
        perno = max(range(k, n), key=lambda r: abs(righe[r][k]))
        if abs(righe[perno][k]) <= 1e-13 * grande:
            raise NonEquilibrato("matrice singolare")
        righe[k], righe[perno] = righe[perno], righe[k]
        for r in range(n):
            if r != k:
                q = righe[r][k] / righe[k][k]
                righe[r] = [a - q * b for a, b in zip(righe[r], righe[k])]
    return [righe[k][n] / righe[k][k] for k in range(n)]


def inversa(M: list) -> list:
    """Inverse of a symmetric 3 by 3 matrix, by columns."""
    return [risolvi(M, [1.0 if k == j else 0.0 for k in range(3)]) for j in range(3)]


def prodotto(M: list, v) -> list:
    return [sum(a * b for a, b in zip(riga, v)) for riga in M]


def valore(piano, x: float, y: float) -> float:
    return piano[0] * y + piano[1] * x + piano[2]


class Contatto:
    """One contact rectangle (xMin, xMax, yMin, yMax) with its bolts."""

    def __init__(self, rettangolo, bulloni: list):
        xMin, xMax, yMin, yMax = rettangolo
        self.vertici = [(xMin, yMin), (xMax, yMin), (xMax, yMax), (xMin, yMax)]
        self.bulloni = bulloni
        self.interno = [xMin + 1e-4 < b.x < xMax - 1e-4 and yMin + 1e-4 < b.y < yMax - 1e-4
                        for b in bulloni]

    def compresso(self, piano) -> list:
        return semipiano(self.vertici, piano)

    def matrice(self, piano) -> list:
        """Stiffness of compressed area and bolts at work; of the whole rectangle when piano is None."""
        M = momenti(self.vertici if piano is None else self.compresso(piano))
        for b, dentro in zip(self.bulloni, self.interno):
            fermo = dentro and (piano is None or valore(piano, b.x, b.y) < 0)
            if not fermo:
                v = (b.y, b.x, 1.0)
                for r in range(3):
                    for c in range(3):
                        M[r][c] += b.area * v[r] * v[c]
        return M

    def risultanti(self, piano) -> list:
        return prodotto(self.matrice(piano), piano)

    def _ridotto(self):
        """The same contact in coordinates centred on the rectangle and scaled by its half diagonal."""
        (xa, ya), (xb, yb) = self.vertici[0], self.vertici[2]
        x0, y0, L = (xa + xb) / 2, (ya + yb) / 2, math.hypot(xb - xa, yb - ya) / 2
        ridotto = Contatto(((xa - x0) / L, (xb - x0) / L, (ya - y0) / L, (yb - y0) / L),
                           [Bullone((b.x - x0) / L, (b.y - y0) / L, b.area / L**2)
                            for b in self.bulloni])
        ridotto.interno = self.interno
        return ridotto, x0, y0, L

    def piano(self, f) -> list:
        """Plane that balances f to about 1e-14 of the load (damped Newton on the energy)."""
        if all(v == 0 for v in f):
            return [0.0, 0.0, 0.0]
        rid, x0, y0, L = self._ridotto()
        # Loads about the centre, divided so that the reduced integrals balance them.
        g = [(f[0] - y0 * f[2]) / L**3, (f[1] - x0 * f[2]) / L**3, f[2] / L**2]
        peso = max(abs(v) for v in g)

        def energia(c):
            R = rid.risultanti(c)
            return sum(ck * (Rk / 2 - gk) for ck, Rk, gk in zip(c, R, g)), R

        c = risolvi(rid.matrice(None), g)
        F, R = energia(c)
        for _ in range(300):
            resto = [gk - Rk for gk, Rk in zip(g, R)]
            if max(abs(v) for v in resto) <= 1e-14 * peso:
                break
            M = rid.matrice(c)
            traccia = M[0][0] + M[1][1] + M[2][2]
            smorza = 0.0
            while True:
                try:
                    passo = risolvi([[M[r][k] + (smorza if r == k else 0.0) for k in range(3)]
                                     for r in range(3)], resto)
                    break
                except NonEquilibrato:
                    smorza = max(10 * smorza, 1e-6 * traccia, 1e-9)
            discesa = -sum(p * v for p, v in zip(passo, resto))
            t, mosso = 1.0, False
            while t > 1e-12:
                prova = [ck + t * pk for ck, pk in zip(c, passo)]
                Fp, Rp = energia(prova)
                # Near the minimum the energy no longer tells two planes apart: the misfit does.
                scarto = max(abs(gk - Rk) for gk, Rk in zip(g, Rp))
                if Fp < F + 1e-4 * t * discesa or scarto < max(abs(v) for v in resto) / 2:
                    mosso = True
                    break
                t /= 2
            if not mosso:
                break
            c, F, R = prova, Fp, Rp
        if max(abs(gk - Rk) for gk, Rk in zip(g, R)) > 1e-11 * peso:
            raise NonEquilibrato("nessun piano equilibra le azioni")
        risolvi(rid.matrice(c), g)          # a singular matrix means more than one plane
        return [c[0] / L, c[1] / L, c[2] - (c[0] * y0 + c[1] * x0) / L]

    def arresto(self, f, passate: int = 100):
        """Where undamped steps with the program's stopping rule end.

        Each step solves matrice(c_n) c_n+1 = f, which is the full Newton step; the run ends one step
        after the first plane that balances each component to 1 + 1e-4 of the load. Returns the plane
        (None when a pivot falls below 1e-4 or the steps run out) and the smallest distance from 1 of
        a ratio of misfit to tolerance that decided a test.
        """
        soglie = [1.0 + 1e-4 * abs(v) for v in f]
        c, vicino, misura = None, math.inf, None
        for passata in range(1, passate + 1):
            if passata >= 3:
                rapporto = max(m / s for m, s in zip(misura, soglie))
                vicino = min(vicino, abs(rapporto - 1))
                if rapporto < 1:
                    return c, vicino
            M = self.matrice(c)
            if c is not None:
                misura = [abs(R - v) for R, v in zip(prodotto(M, c), f)]
            if not _perni(M):
                return None, vicino
            try:
                c = risolvi(M, f)
            except NonEquilibrato:
                return None, vicino
        return None, vicino

    def pendenza(self, piano) -> float:
        """Steepness |dy/dx| of the edge that the neutral axis cuts, when steep enough to matter.

        Integrals along an edge y = m x + q lose digits as m grows: about 1e-7 of the stress at
        1e4. A much steeper edge counts as vertical and loses nothing.
        """
        m = abs(piano[1]) / abs(piano[0]) if piano[0] != 0 else math.inf
        lati = self.compresso(piano)
        return m if 3 <= len(lati) and any(valore(piano, x, y) > 0 for x, y in self.vertici) else 0.0


def _perni(M) -> bool:
    """Whether elimination without row exchange keeps its three pivots at 1e-4 or more."""
    a = [list(r) for r in M]
    for k in range(3):
        if abs(a[k][k]) < 1e-4:
            return False
        for r in range(k + 1, 3):
            q = a[r][k] / a[k][k]
            a[r] = [v - q * w for v, w in zip(a[r], a[k])]
    return True
