#!/usr/bin/env python3
"""Kills nights with SIGKILL, starts them again, and compares the books with what the machines sold.

    muertes.py [--veces N] [--semilla S] [--tiendas T]     N kills over T shops running side by side

A kill comes at any moment of the night, just when a step that moves sales is due, or up to 30 ms after
a write. Ends with 1 when any night doesn't agree; its folder is kept and reported.
"""
import argparse
import collections
import multiprocessing
import random
import sqlite3
import sys
import time

from tienda import Tienda, esperar

GRUPOS = [[1, 5], [3, 7], [5, 8], [1, 3], [7, 6], [2, 5]]
DELICADOS = ("S:CERRAR", "T:TX_ZERO", "C:ESPERA", "P:ACUMULAR", "P:STOCK", "E:TOTALIZA")
MUERTES_POR_NOCHE = 8


class Noche:
    """One night, from its first start until a run of it ends by itself."""

    def __init__(self, tienda, numero, azar):
        self.t, self.numero, self.azar = tienda, numero, azar
        self.donde = collections.Counter()
        self.base = sqlite3.connect(f"file:{tienda.carpeta}/TARVO.MDB?mode=ro", uri=True, timeout=20)
        self.pasos = (tienda.carpeta / "NOCHE.AUT").read_bytes().decode("cp1252").split("\r\n")

    def paso(self):
        """Number of recorded steps; nothing outside a run."""
        try:
            fila = self.base.execute("SELECT PASO FROM Proceso").fetchone()
        except sqlite3.OperationalError:
            return None
        return fila and fila[0]

    def escrito(self):
        rutas = [self.t.carpeta / n for n in ("TARVO.MDB-wal", "TARVO.MDB", "VENTAS.EXP", "TARVO.INI")]
        return [r.stat().st_mtime_ns if r.exists() else 0 for r in rutas]

    def esperar_muerte(self, vivo):
        """Waits until the moment of the kill, or until the run ends by itself."""
        modo = self.azar.choice(("momento", "paso", "paso", "escrito", "escrito"))
        if modo == "momento":
            esperar(lambda: not vivo(), self.azar.uniform(0, 1))
        elif modo == "paso":
            hechos = self.paso() or 0
            por_hacer = [i for i, p in enumerate(self.pasos) if i >= hechos and p.startswith(DELICADOS)]
            if por_hacer:
                cual = self.azar.choice(por_hacer)
                esperar(lambda: not vivo() or self.paso() == cual, 30, 0.001)
                time.sleep(self.azar.uniform(0, 0.03))
        else:
            esperar(lambda: not vivo(), self.azar.uniform(0, 1))
            antes = self.escrito()
            esperar(lambda: not vivo() or self.escrito() != antes, 5, 0.001)
            time.sleep(self.azar.uniform(0, 0.03))

    def correr(self, quedan):
        """The exit status of the finished run and the number of kills."""
        muertes = 0
        while True:
            p = self.t.lanzar(noche=self.numero)
            if muertes < min(quedan, MUERTES_POR_NOCHE):
                self.esperar_muerte(lambda: p.poll() is None)
            elif not esperar(lambda: p.poll() is not None, 120, 0.05):
                p.kill()
                raise RuntimeError("la noche no termina")
            if p.poll() is not None:
                return p.returncode, muertes
            hechos = self.paso()
            p.kill()
            p.wait()
            muertes += 1
            self.donde["arranque" if hechos is None else self.pasos[hechos].split(",")[0] or "final"] += 1
            # A run without a record had finished, except for its exit.
            if self.paso() is None and "Ejecución finalizada" in self.t.salida.read_text("utf-8"):
                return 0, muertes


def tienda_entera(encargo):
    """N kills in one shop: kills, nights, places, disagreements."""
    cual, veces, semilla = encargo
    azar = random.Random(f"{semilla}/{cual}")
    t = Tienda(GRUPOS[cual % len(GRUPOS)], ventas=40, semilla=semilla * 100 + cual)
    muertes, noches, donde, fallos = 0, 0, collections.Counter(), []
    try:
        t.encender()
        while muertes < veces and not fallos:
            if noches:
                t.vender_otro_dia()
            (t.carpeta / "salida.txt").unlink(missing_ok=True)
            noche = Noche(t, noches, azar)
            estado, nuevas = noche.correr(veces - muertes)
            muertes, noches = muertes + nuevas, noches + 1
            donde += noche.donde
            fallos = t.comprobar()
            if estado:
                fallos.append(f"la noche acabó con {estado}")
            if fallos:
                fallos = [f"{t.carpeta}, noche {noches}, semilla {semilla}", *fallos[:20], t.salida.read_text("utf-8")]
    except Exception as e:  # a shop that breaks counts as failed
        fallos.append(f"{t.carpeta}: {e!r}")
    t.apagar() if fallos else t.borrar()
    return muertes, noches, donde, fallos


def main():
    a = argparse.ArgumentParser()
    a.add_argument("--veces", type=int, default=200)
    a.add_argument("--semilla", type=int, default=1)
    a.add_argument("--tiendas", type=int, default=6)
    o = a.parse_args()
    empezado = time.monotonic()
    encargos = [(n, (o.veces + o.tiendas - 1 - n) // o.tiendas, o.semilla) for n in range(o.tiendas)]
    with multiprocessing.Pool(o.tiendas) as grupo:
        resultados = grupo.map(tienda_entera, encargos, 1)
    donde = sum((r[2] for r in resultados), collections.Counter())
    mal = [linea for r in resultados for linea in r[3]]
    print(f"{sum(r[0] for r in resultados)} muertes en {sum(r[1] for r in resultados)} noches de {o.tiendas} tiendas, "
          f"{time.monotonic() - empezado:.0f} s: " + ("NO CUADRAN" if mal else "todas cuadran"))
    print("  " + ", ".join(f"{p} {n}" for p, n in sorted(donde.items())))
    print("\n".join(mal))
    return 1 if mal else 0


if __name__ == "__main__":
    sys.exit(main())
