#!/usr/bin/env python3
"""A night over each kind of wire, compared with the sales of the machines. A line for each; ends with 1
when one doesn't agree."""
import pathlib
import subprocess
import sys
import tempfile

from tienda import Tienda, esperar, puerto_libre


def hilo(titulo, grupos, transporte, ajustes=(), socat=None, conectores=None):
    t = Tienda(grupos, ventas=40, semilla=11, transporte=transporte)
    t.ajustes(*ajustes)
    if conectores:
        t.escribir("CONECTORES.INI", conectores)
    cable = None
    try:
        t.encender()
        if socat:
            cable = subprocess.Popen(["socat", *socat])
            esperar(pathlib.Path(socat[0].split("link=")[1]).exists)
        fallos = []
        for noche in range(2):
            if noche:
                t.vender_otro_dia()
            estado, salida = t.correr(noche=noche, plazo=300)
            fallos += ([f"acabó con {estado}: {salida}"] if estado else []) + t.comprobar()
        ventas = sum(len(m["libro"]) for m in t.maquinas())
        print(f"{'MAL' if fallos else 'bien'}  {titulo}: 2 noches, {ventas} ventas de los grupos {grupos}", flush=True)
        print("".join(f"      {f}\n" for f in fallos[:12]), end="")
        return not fallos
    finally:
        if cable:
            cable.terminate()
            cable.wait()
        t.borrar()


def main():
    p, q = puerto_libre(), puerto_libre()
    with tempfile.TemporaryDirectory(prefix="muertes-") as sitio:
        serie = "RS232({0})= 9600,O,7,1"
        bien = [
            hilo("TCP/IP", [1, 3, 5, 7], {}),
            hilo("puerto serie (par de seudoterminales de socat)", [1], {1: (
                {"pty": f"{sitio}/maquina"}, "remoto=2, canal=1, TELEF=''")},
                ["Device(1)= 2", "Puerto(1)= 1", serie.format(1), f"RutaPuerto(1)= {sitio}/puerto"],
                [f"pty,raw,echo=0,link={sitio}/puerto", f"{sitio}/maquina,raw,echo=0"]),
            hilo("módem", [2], {2: ({"modem": f"{sitio}/modem", "marcarMs": 50, "llamadas": ["BUSY"]},
                                    "remoto=1, canal=2, TELEF='985123456'")},
                 ["Device(2)= 1", "Puerto(2)= 2", serie.format(2), f"RutaPuerto(2)= {sitio}/modem"]),
            hilo("conectores de CONECTORES.INI (TCP y serie)", [1, 3], {
                1: ({"tcp": p}, "remoto=4, TELEF='TIENDA'"), 3: ({"pty": f"{sitio}/isla"}, "remoto=4, TELEF='ISLA'")},
                conectores=f"TIENDA= tcp:127.0.0.1:{p}\r\nISLA= serie:{sitio}/isla,9600,O,7,1\r\n"),
            hilo("varios grupos en un mismo acceso", [3, 4], {  # two nodes on one line
                g: ({"tcp": q}, f"remoto=3, TELEF='127.0.0.1:{q},1'") for g in (3, 4)}),
        ]
    return 0 if all(bien) else 1


if __name__ == "__main__":
    sys.exit(main())
