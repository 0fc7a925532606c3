#!/usr/bin/env python3
"""Faults from outside: the exit status and the report to the shop for each. A table on standard output; ends
with 1 when a status is unexpected, a machine forgot what isn't in the books, or nothing was reported."""
import os
import resource
import signal
import sqlite3
import subprocess
import sys
import threading
import time

from tienda import BIN, Tienda, esperar, puerto_libre

# A closed port or an unpowered machine is given up soon: the shop's own waits would take a quarter of an hour.
CORTOS = ["TimeOut= 1500", "TimeACK= 300", "TimeCero= 3000"]
# Grand totals only: what counts here is the fault.
PASOS = ["S:ABRIR", "T:RXPLUS,ALL,Sí,0000000,9999999", "T:RXGRTOT,ALL", "C:ESPERA,0,Sí", "S:CERRAR,Ventas,Sí,Sí",
         "T:TX_ZERO,ALL,No", "C:ESPERA,0,Sí", "P:LIMPIAR", "P:SEL. ULTIMO", "P:ACUMULAR,2", "P:SEL. ULTIMO", "P:STOCK",
         "P:SEL. ULTIMO", "E:TOTALIZA,No,No,VENTAS"]
MAL = []


def nada_perdido(t, terminada=False):
    """Each sale forgotten by a machine is in the days, and none is there twice. For a finished night all sales
    are there, and in the week, the stock and the export."""
    if terminada:
        return [f for f in t.comprobar() if "'PLU'" in f or "'GRT'" in f or not f.startswith(("días", "sem", "VENTAS.EXP: (",
                                                                                           "pedidos", "inven"))]
    hay = {g: imp for (g, clase, _, _), (imp, _) in t.libros("TIPO IN (1, 5)").items() if clase == "GRT"}
    peores = []
    for m in t.maquinas():
        olvidado = sum(v["importe"] for v in m["libro"][:m["puestasACero"][-1]["ventas"]]) if m["puestasACero"] else 0
        todo = sum(v["importe"] for v in m["libro"])
        if hay.get(m["grupo"], 0) not in (todo, olvidado):
            peores.append(f"grupo {m['grupo']}: vendido {todo}, olvidado {olvidado}, anotado {hay.get(m['grupo'], 0)}")
    return peores


def caso(titulo, esperado, antes=None, durante=None, proceso="NOCHE", despues=None, sql=None, maquina=True,
         ejecutar=None, sigue=False, **mas):
    """One fault. `sigue`: the night runs again without it, and then the books must be complete."""
    t = Tienda([1], ventas=30, pasos=PASOS, **{k: mas.pop(k) for k in ("transporte", "fallos") if k in mas})
    try:
        t.ajustes(*CORTOS)
        if sql:
            t.sql(sql)
        if maquina:
            t.encender()
        if antes:
            antes(t)
        hilo = threading.Thread(target=durante, args=(t,)) if durante else None
        if hilo:
            hilo.start()
        estado, salida = ejecutar(t) if ejecutar else t.correr(proceso, plazo=150, **mas)
        if hilo:
            hilo.join()
        if despues:
            despues(t)
        peores = nada_perdido(t) if maquina else []
        if sigue:
            otra, dicho_despues = t.correr(plazo=150)
            peores += nada_perdido(t, True) + ([f"al repetir acabó con {otra}: {dicho_despues}"] if otra not in (0, 1) else [])  # 1: it remembers the fault
    except (sqlite3.Error, ValueError, KeyError, OSError) as e:
        estado, salida, peores = estado if "estado" in locals() else "?", "", [f"{type(e).__name__}: {e}"]
    finally:
        t.borrar()
    dicho = [x.strip() for x in salida.splitlines() if x.strip() and not x.startswith("Ejecución") and ":TAREA" not in x]
    bien = estado == esperado and not peores and (dicho or not esperado)
    if not bien:
        MAL.append(titulo)
    linea = " / ".join(dict.fromkeys(dicho)).replace(str(t.carpeta), "CARPETA")
    print(f"{'bien' if bien else 'MAL '} | {titulo} | {estado} | {linea[:330]}{' !! ' + '; '.join(peores) if peores else ''}",
          flush=True)


def escribir(nombre, texto):
    return lambda t: (t.carpeta / nombre).write_bytes(texto)


def senal(cual, tras):
    def hacer(t):
        p = t.lanzar()
        time.sleep(tras)
        p.send_signal(cual)
        p.wait(30)
        return p.returncode, t.salida.read_text("utf-8")
    return hacer


def bloquear(tras, segundos):
    def hacer(t):
        time.sleep(tras)
        base = t.base()
        base.execute("BEGIN EXCLUSIVE")
        esperar(lambda: False, segundos)
        base.execute("ROLLBACK")
        base.close()
    return hacer


def segundo(t):
    p = t.lanzar()
    time.sleep(2)
    otro = subprocess.run([BIN / "tarvo", "--carpeta", t.carpeta, "--sin-ventana", "NADA"], capture_output=True, text=True)
    p.wait(60)
    return otro.returncode, otro.stderr


def sin_derechos(usuario=65534):
    return lambda: (os.setgid(usuario), os.setuid(usuario))


def abrir_carpeta(t):
    for ruta in [t.carpeta, *t.carpeta.iterdir()]:
        os.chown(ruta, 65534, 65534)


def main():
    serie = ["Device(1)= 2", "Puerto(1)= 1", "RS232(1)= 9600,O,7,1"]
    por_serie = {1: ({"tcp": puerto_libre()}, "remoto=2, canal=1, TELEF=''")}
    caso("puerto serie que no existe", 1, lambda t: t.ajustes(*serie, "RutaPuerto(1)= /dev/no-hay"), transporte=por_serie)
    if os.getuid() == 0:
        def puerto_ajeno(t):
            t.ajustes(*serie, f"RutaPuerto(1)= {t.carpeta}/puerto")
            os.mkfifo(t.carpeta / "puerto", 0o600)
            abrir_carpeta(t)
            os.chown(t.carpeta / "puerto", 0, 0)
        caso("puerto serie sin permiso", 1, puerto_ajeno, transporte=por_serie, preexec_fn=sin_derechos())
    caso("host que no se conoce", 1, sql="UPDATE GRUPOS SET TELEF='no-hay.invalid:4001,1'")
    caso("puerto TCP cerrado", 1, sql=f"UPDATE GRUPOS SET TELEF='127.0.0.1:{puerto_libre()},1'")
    caso("máquina que se queda a oscuras", 1, fallos={1: {"oscuraMs": 100000, "guion": [
        {"averia": "oscura", "trama": 12}]}})
    caso("segundo tarvo en la carpeta", 4, ejecutar=segundo)
    caso("base bloqueada 3 s durante la noche", 0, durante=bloquear(1.5, 3))
    caso("base bloqueada hasta el final", 1, durante=bloquear(2, 60), sigue=True)
    caso("disco lleno (límite de 200 kB por fichero)", 1, sigue=True, preexec_fn=lambda: (
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN),
        resource.setrlimit(resource.RLIMIT_FSIZE, (200_000, 200_000))))
    if os.getuid() == 0:
        def solo_lectura(t):
            abrir_carpeta(t)
            os.chown(t.carpeta / "TARVO.MDB", 0, 0)
            (t.carpeta / "TARVO.MDB").chmod(0o444)
        caso("base de solo lectura", 4, solo_lectura, preexec_fn=sin_derechos())
    caso("base de una versión posterior", 4, sql="UPDATE version SET MAJOR=99")
    caso("no es una base de datos", 4, escribir("TARVO.MDB", b"esto no es una base\r\n" * 400), maquina=False)
    caso("TARVO.INI dañado", 0, lambda t: (t.carpeta / "TARVO.INI").write_bytes(
        (t.carpeta / "TARVO.INI").read_bytes() + b"\r\n\xff\xfe[[[=\r\nTimeOut(= x\r\nDevice(99)= 7\r\n" + bytes(300)))
    caso("TARVO.INI es una carpeta", 4, lambda t: ((t.carpeta / "TARVO.INI").unlink(), (t.carpeta / "TARVO.INI").mkdir()))
    caso("CONECTORES.INI dañado", 1, escribir("CONECTORES.INI", b"\xff\xfe\x00=== tcp::::\r\nX"),
         sql="UPDATE GRUPOS SET remoto=4, TELEF='TIENDA'")
    caso(".AUT dañado", 3, escribir("NOCHE.AUT", b"T:NADA,ALL\r\n\xff\xfe"))
    caso(".AUT que no existe", 3, proceso="NOHAY")
    caso(".CRO dañado", 3, escribir("H.CRO", b"\xff\xfe;;;@\r\n" * 3), proceso="H.CRO")
    for nombre, cual in (("SIGINT", signal.SIGINT), ("SIGTERM", signal.SIGTERM)):
        caso(f"{nombre} mientras se lee", 2, ejecutar=senal(cual, 1.3))
        caso(f"{nombre} al poner a cero", 2, ejecutar=senal(cual, 5.2))

    def cro(t):
        p = t.lanzar("H.CRO")
        time.sleep(4)
        p.send_signal(signal.SIGTERM)
        p.wait(30)
        return p.returncode, t.salida.read_text("utf-8")
    caso(".CRO hasta que se le dice que pare", 2, escribir("H.CRO", b"03:00:00;" + b",".join([b"S\xed"] * 7) + b";NOCHE\r\n"),
         ejecutar=cro)
    return 1 if MAL else 0


if __name__ == "__main__":
    sys.exit(main())
