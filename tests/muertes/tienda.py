"""A shop in a temporary folder: the database, its machines (tarvo-simulador), nights run as
separate processes, and the comparison of the books with the sales of the machines."""
import collections
import datetime
import json
import os
import pathlib
import shutil
import signal
import socket
import sqlite3
import subprocess
import tempfile
import time

RAIZ = pathlib.Path(__file__).resolve().parent.parent.parent
BIN = pathlib.Path(os.environ.get("TARVO_BIN", RAIZ / "build" / "bin"))
RELOJ = pathlib.Path(os.environ.get("MUERTES_RELOJ", RAIZ / "build" / "tests" / "muertes" / "libmuertes_reloj.so"))
TABLAS = {"PLU": "TOTPLU", "GRT": "TOTGRT", "OPE": "TOTOPE", "DEP": "TOTDEP", "HOR": "TOTHOR", "OPH": "TOTOPHOR"}
# The tasks of a night and the kinds of group (1 scales, 2 Ebony, 3 registers, 4 Birch) that support them.
TAREAS = {"RXPLUS": (1, 2, 3, 4), "RXGRTOT": (1, 2, 3, 4), "RXOPERA": (1, 2, 4), "RXDEPAR": (1, 2, 3, 4),
          "RXHORAR": (1, 4), "RXOPHOR": (1, 2, 4), "RXPEDID": (1, 2, 4), "RXINVEN": (1, 4)}
LEIDO_POR = dict(zip(("PLU", "GRT", "OPE", "DEP", "HOR", "OPH"), TAREAS.values()))
TIPO = {1: 1, 2: 1, 3: 2, 4: 2, 5: 3, 6: 3, 7: 4, 8: 4}  # by group of the demo shop
TRAS_LEER = ["C:ESPERA,3,No", "S:CERRAR,Ventas,Sí,Sí", "T:TX_ZERO,ALL,No", "C:ESPERA,3,No", "P:LIMPIAR",
             "P:SEL. ULTIMO", "P:ACUMULAR,2", "P:SEL. ULTIMO", "P:STOCK", "P:SEL. ULTIMO", "E:TOTALIZA,No,No,VENTAS"]
PRIMERA = datetime.datetime(2026, 3, 2, 21, 30)  # a Monday, after closing time
EPOCA = datetime.datetime(1899, 12, 30)


def puerto_libre():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def noche(grupos):
    """Reads everything these groups support, closes, zeroes, accumulates, discounts and exports."""
    resto = {"RXPLUS": ",Sí,0000000,9999999"}
    lecturas = ["S:ABRIR"]  # in the books a session ends at the moment it was opened
    for tarea, tipos in TAREAS.items():
        saben = [g for g in grupos if TIPO[g] in tipos]
        lecturas += [f"T:{tarea},{g}{resto.get(tarea, '')}" for g in (["ALL"] if saben == list(grupos) else saben)]
    return lecturas + TRAS_LEER


def esperar(que, segundos=20.0, cada=0.002):
    fin = time.monotonic() + segundos
    while time.monotonic() < fin:
        if que():
            return True
        time.sleep(cada)
    return False


class Tienda:
    def __init__(self, grupos, ventas=60, semilla=1, transporte=None, pasos=None, fallos=None):
        """`transporte` gives by group code what differs from TCP: (json of the simulator, SQL assignments)."""
        self.carpeta = pathlib.Path(tempfile.mkdtemp(prefix="muertes-"))
        self.grupos, self.dias, self.simulador, self.adelanto = grupos, 1, None, {}
        self.estado = self.carpeta / "estado.json"
        self.escribir("NADA.AUT", "")
        self.escribir("NOCHE.AUT", "".join(p + "\r\n" for p in pasos or noche(grupos)))
        self.correr("NADA")
        self.ajustes(*(f"Device({n})= 3" for n in range(1, 5)))
        self.sql((RAIZ / "datos" / "tienda-demo" / "tienda.sql").read_text("utf-8"))
        dentro = ",".join(map(str, grupos))
        antes = (PRIMERA - datetime.timedelta(days=1) - EPOCA) / datetime.timedelta(days=1)
        self.sql(f"DELETE FROM BZAS WHERE SUGPO NOT IN ({dentro}); DELETE FROM GRUPOS WHERE CODGPO NOT IN ({dentro});"
                 "DELETE FROM Sesiones; INSERT INTO Sesiones (CODGPO, PZERO) "
                 f"SELECT CODGPO, {antes} FROM GRUPOS;")
        maquinas = []
        for g in grupos:
            suyo, asignar = (transporte or {}).get(g) or self.por_tcp(g)
            self.sql(f"UPDATE GRUPOS SET {asignar} WHERE CODGPO={g};")
            listas = {} if TIPO[g] == 3 else {
                "pedidos": [{"articulo": 4 + 5 * n, "peso": 1500 * (n + g), "unidades": 0} for n in range(5)],
                "inventarios": [{"articulo": 5 + 6 * n, "peso": 900 * (n + g), "unidades": 0} for n in range(4)]}
            if TIPO[g] == 2:
                listas.pop("inventarios")
            maquinas.append({"grupo": g, "pausaMs": 3, **suyo, **listas, "fallos": (fallos or {}).get(g, {})})
        self.escribir("maquinas.json", json.dumps({
            "semilla": semilla, "dia": {"fecha": PRIMERA.strftime("%d/%m/%Y"), "ventas": ventas, "devoluciones": 0.03,
                                        "descuentos": 0.1}, "grupos": maquinas}), "utf-8")

    @staticmethod
    def por_tcp(g):
        puerto = puerto_libre()
        return {"tcp": puerto}, f"remoto=3, TELEF='127.0.0.1:{puerto},{g}'"

    def escribir(self, nombre, texto, codigo="cp1252"):
        (self.carpeta / nombre).write_bytes(texto.encode(codigo))

    def ajustes(self, *lineas):
        """Replaces or adds keys of TARVO.INI."""
        claves = {linea.split("=")[0].strip() for linea in lineas}
        viejas = (self.carpeta / "TARVO.INI").read_bytes().decode("cp1252").split("\r\n")
        quedan = [v for v in viejas if v and v.split("=")[0].strip() not in claves]
        self.escribir("TARVO.INI", "\r\n".join([*quedan, *lineas, ""]))

    def sql(self, guion):
        with self.base() as base:
            base.executescript(guion)
        base.close()

    def base(self):
        return sqlite3.connect(self.carpeta / "TARVO.MDB", timeout=20, isolation_level=None)

    def filas(self, consulta):
        base = self.base()
        try:
            return base.execute(consulta).fetchall()
        finally:
            base.close()

    # --- processes ------------------------------------------------------------------------------

    def entorno(self, noche):
        if noche not in self.adelanto:  # the same for all runs of a night: its clock doesn't go back
            fecha = (PRIMERA + datetime.timedelta(days=noche)).replace(tzinfo=datetime.timezone.utc)
            self.adelanto[noche] = int(fecha.timestamp() - time.time())
        return {**os.environ, "LD_PRELOAD": str(RELOJ), "TZ": "UTC", "MUERTES_SEGUNDOS": str(self.adelanto[noche])}

    def lanzar(self, proceso="NOCHE", noche=0, **mas):
        self.salida = self.carpeta / "salida.txt"
        with open(self.salida, "ab") as salida:
            return subprocess.Popen([BIN / "tarvo", "--carpeta", self.carpeta, "--sin-ventana", proceso], stdout=salida,
                                    stderr=subprocess.STDOUT, env=self.entorno(noche), **mas)

    def correr(self, proceso="NOCHE", noche=0, plazo=240, **mas):
        """The exit status and the lines of one run."""
        (self.carpeta / "salida.txt").unlink(missing_ok=True)
        p = self.lanzar(proceso, noche, **mas)
        try:
            estado = p.wait(plazo)
        except subprocess.TimeoutExpired:
            p.kill()
            p.wait()
            estado = "sin fin"
        return estado, self.salida.read_text("utf-8", errors="replace")

    def encender(self):
        if self.simulador:
            return
        self.simulador = subprocess.Popen(
            [BIN / "tarvo-simulador", "--config", self.carpeta / "maquinas.json", "--estado", self.estado, "--base",
             self.carpeta / "TARVO.MDB"], stdout=subprocess.PIPE, text=True)
        for linea in self.simulador.stdout:
            if linea == "LISTO\n":
                return
        raise RuntimeError("tarvo-simulador no arranca")

    def apagar(self):
        if self.simulador:
            self.simulador.terminate()
            self.simulador.wait(20)
            self.simulador = None

    def maquinas(self):
        """The machines as they are now."""
        antes = self.estado.stat().st_ino
        self.simulador.send_signal(signal.SIGUSR1)
        esperar(lambda: self.estado.stat().st_ino != antes)
        return json.loads(self.estado.read_text("utf-8"))["maquinas"]

    def vender_otro_dia(self):
        self.dias += 1
        self.simulador.send_signal(signal.SIGUSR2)
        esperar(lambda: all(m["diasVendidos"] == self.dias for m in self.maquinas()))

    def borrar(self):
        self.apagar()
        shutil.rmtree(self.carpeta, ignore_errors=True)

    # --- the books ------------------------------------------------------------------------------

    def libros(self, donde):
        """(group, kind, code, hour) -> [amount, count] of the periods selected by `donde`."""
        suma = collections.defaultdict(lambda: [0, 0])
        for clase, tabla in TABLAS.items():
            hora = "HORA" if clase == "OPH" else "0"
            for g, codi, h, imp, con in self.filas(
                    f"SELECT GRUPO, CODI, {hora}, sum(IMP), sum(CON) FROM {tabla} WHERE LINK IN "
                    f"(SELECT LINK FROM COLUMNA WHERE {donde}) GROUP BY 1, 2, 3"):
                suma[g, clase, codi, h] = [imp, con]
        return suma

    def exportado(self):
        suma = collections.defaultdict(lambda: [0, 0])
        clases = {"01": "PLU", "02": "GRT", "03": "OPE", "04": "DEP", "06": "HOR", "07": "OPH"}
        fallos, bloques = [], 0
        datos = (self.carpeta / "VENTAS.EXP").read_bytes().decode("cp1252") if (
            self.carpeta / "VENTAS.EXP").exists() else ""
        if datos and not datos.endswith("\r\n"):
            fallos.append("VENTAS.EXP: la última línea está cortada")
        for linea in datos.split("\r\n")[:-1]:
            if linea.startswith("*"):
                bloques += 1
                continue
            if len(linea) != 50 or linea[:2] not in clases:
                fallos.append(f"VENTAS.EXP: línea dañada: {linea!r}")
                continue
            clase = clases[linea[:2]]
            codi, h = (int(linea[9:14]), int(linea[14:16])) if clase == "OPH" else (int(linea[9:16]), 0)
            fila = suma[int(linea[2:6]), clase, codi, h]
            fila[0] += int(linea[16:26])
            fila[1] += int(linea[44:50])
        return suma, bloques // 2, fallos

    @staticmethod
    def ajenos(maquina):
        """Codes unknown to the shop: their sales belong to article 2."""
        return {a["codigo"] for a in maquina["articulos"] if a["ajeno"]}

    @classmethod
    def vendido(cls, maquinas):
        """What the books should hold, from the individual sales alone."""
        suma = collections.defaultdict(lambda: [0, 0])
        for m in maquinas:
            g, ajenos = m["grupo"], cls.ajenos(m)
            for v in m["libro"]:
                operador = m["operadores"][v["operador"] - 1]
                claves = [("PLU", 2 if v["articulo"] in ajenos else v["articulo"], 0), ("GRT", g, 0),
                          ("OPE", operador, 0), ("DEP", v["departamento"], 0), ("HOR", v["hora"], 0),
                          ("OPH", operador, v["hora"])]
                for clase, codi, hora in claves:
                    if TIPO[g] not in LEIDO_POR[clase]:
                        continue
                    fila = suma[g, clase, codi, hora]
                    fila[0] += v["importe"]
                    fila[1] += v["cuenta"]
        return suma

    def stock(self, maquinas):
        esperado = collections.Counter()
        grupos = {g: (a, s) for g, a, s in self.filas("SELECT CODGPO, Almacen, SECCION FROM GRUPOS")}
        al_peso = {(s, c): cada in (0, 1) for s, c, cada in self.filas("SELECT SECCION, CODPLU, CADA FROM PLUSES")}
        for m in maquinas:
            almacen, seccion = grupos[m["grupo"]]
            ajenos = self.ajenos(m)
            for v in m["libro"]:
                # Registers don't weigh: sales by weight don't leave the stock there.
                codigo = 2 if v["articulo"] in ajenos else v["articulo"]
                pesada = al_peso[seccion, codigo]
                esperado[almacen, seccion, codigo] += (
                    v["cuenta"] if not pesada else 0 if m["tipo"] == 3 else v["peso"])
        hay = {(a, s, c): n for a, s, c, n in self.filas("SELECT CODALM, SECCION, CODIGO, Venta FROM MovsAlm") if n}
        return {k: n for k, n in esperado.items() if n}, hay

    def comprobar(self, exportado=True):
        """The disagreements, a sentence each; empty when every sale is counted once everywhere."""
        maquinas = self.maquinas()
        esperado, fallos = self.vendido(maquinas), []
        vistas = {"días": self.libros("TIPO=1"), "semanas": self.libros("TIPO=2")}
        if exportado:
            vistas["VENTAS.EXP"], bloques, rotos = self.exportado()
            fallos += rotos
            if bloques != self.dias:
                fallos.append(f"VENTAS.EXP: {bloques} bloques en {self.dias} noches")
        for nombre, hay in vistas.items():
            for clave in sorted(esperado.keys() | hay.keys()):
                # A register's department whose sales and returns cancel out is not kept: no count.
                iguales = 1 if clave[1] == "DEP" and TIPO[clave[0]] == 3 else 2
                if esperado[clave][:iguales] != hay[clave][:iguales]:
                    fallos.append(f"{nombre}: {clave} vendido {esperado[clave]} anotado {hay[clave]}")
        vendido, descontado = self.stock(maquinas)
        fallos += [f"stock: {k} vendido {vendido.get(k)} descontado {descontado.get(k)}"
                   for k in sorted(vendido.keys() | descontado.keys()) if vendido.get(k) != descontado.get(k)]
        for m in maquinas:
            if not m["puestasACero"] or m["puestasACero"][-1]["ventas"] != len(m["libro"]):
                fallos.append(f"{m['nombre']}: sin poner a cero")
        return fallos + self.documentos()

    def documentos(self):
        fallos = []
        config = json.loads((self.carpeta / "maquinas.json").read_text("utf-8"))["grupos"]
        for clave, cab, lin, numero in (("pedidos", "PEDI_CAB", "PEDI_LIN", "NUMPED"),
                                        ("inventarios", "INVE_CAB", "INVE_LIN", "NUMINV")):
            for g in config:
                esperado = collections.Counter((a["articulo"], a["peso"] + dia) for dia in range(self.dias)
                                               for a in g.get(clave, []))
                hay = collections.Counter(self.filas(f"SELECT CODIGO, PESO FROM {lin} NATURAL JOIN "
                                                     f"(SELECT {numero} FROM {cab} WHERE GRUPO={g['grupo']})"))
                if hay != esperado:
                    fallos.append(f"{clave} del grupo {g['grupo']}: faltan {esperado - hay}, sobran {hay - esperado}")
        return fallos
