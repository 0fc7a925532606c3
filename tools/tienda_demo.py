#!/usr/bin/env python3
"""Writes the demo shop: tienda.sql for a database just made by the program, and maquinas.json for
tarvo-simulador. The same script gives the same bytes.

    tools/tienda_demo.py [FOLDER]        default datos/tienda-demo beside this script
"""
import argparse
import json
import pathlib
import random

PRIMER_PUERTO = 4101
CABECERA = "-- Demo shop, made by tools/tienda_demo.py. Load it into a database just made by the program:\n" \
           "--   sqlite3 TARVO.MDB < tienda.sql\n"

# Section: name, departments {number: name}, families [(department, unit, cents, bases, kinds)].
# Units: 0 kilogram, 1 hundred grams, 2 unit.
SECCIONES = {
    1: ("FRUTERIA", {1: "FRUTAS", 2: "CITRICOS", 3: "VERDURAS", 4: "HORTALIZAS", 5: "FRUTOS SECOS",
                     6: "SETAS", 7: "TROPICALES", 8: "ENVASADOS"}, [
        (1, 0, 195, ["MANZANA", "PERA", "MELOCOTÓN", "CIRUELA", "UVA", "CEREZA", "NECTARINA", "ALBARICOQUE"],
         ["EXTRA", "PRIMERA", "ECOLÓGICA", "DEL PAÍS"]),
        (1, 0, 145, ["MELÓN", "SANDÍA", "HIGO", "GRANADA", "FRESÓN", "MEMBRILLO"], ["ENTERO", "SELECTO", "DE LA HUERTA"]),
        (2, 0, 129, ["NARANJA", "MANDARINA", "LIMÓN", "POMELO", "LIMA"], ["MESA", "ZUMO", "CON HOJA", "EXTRA"]),
        (3, 0, 175, ["ACELGA", "ESPINACA", "REPOLLO", "COLIFLOR", "BRÓCULI", "ESCAROLA", "LOMBARDA", "BORRAJA"],
         ["FRESCA", "LAVADA", "ECOLÓGICA"]),
        (4, 0, 165, ["TOMATE", "PEPINO", "PIMIENTO", "CALABACÍN", "BERENJENA", "CEBOLLA", "PATATA", "ZANAHORIA",
                     "PUERRO", "JUDÍA VERDE"], ["RAMA", "PERA", "NUEVA", "GRANEL"]),
        (5, 1, 149, ["ALMENDRA", "NUEZ", "AVELLANA", "PISTACHO", "ANACARDO", "PIÑÓN", "CASTAÑA"],
         ["CRUDA", "TOSTADA", "SALADA"]),
        (6, 1, 119, ["CHAMPIÑÓN", "SETA CARDO", "NÍSCALO", "BOLETO", "SHIITAKE"], ["ENTERO", "LAMINADO"]),
        (7, 0, 289, ["PIÑA", "MANGO", "PAPAYA", "PLÁTANO", "AGUACATE", "CHIRIMOYA", "KIWI"], ["AVIÓN", "BARCO"]),
        (8, 2, 220, ["ENSALADA", "MACEDONIA", "GAZPACHO", "ZUMO", "CREMA VERDURA"], ["PEQUEÑA", "GRANDE", "FAMILIAR"]),
    ]),
    2: ("CARNES Y QUESOS", {1: "VACUNO", 2: "CERDO", 3: "CORDERO", 4: "AVES", 5: "QUESOS", 6: "CHARCUTERIA",
                            7: "JAMONES", 8: "ELABORADOS"}, [
        (1, 0, 1290, ["FILETE TERNERA", "SOLOMILLO", "ENTRECOT", "CHULETÓN", "MORCILLO", "FALDA", "AGUJA", "REDONDO"],
         ["1ª A", "1ª B", "AÑOJO"]),
        (2, 0, 690, ["LOMO", "CHULETA CERDO", "PANCETA", "COSTILLA", "SECRETO", "CABEZADA", "MANITAS"],
         ["FRESCO", "ADOBADO", "IBÉRICO"]),
        (3, 0, 1190, ["PIERNA", "PALETILLA", "CHULETILLAS", "CUELLO", "RIÑONADA"], ["LECHAL", "RECENTAL"]),
        (4, 0, 520, ["POLLO", "PECHUGA", "MUSLO", "PAVO", "CONEJO", "ALITAS", "CODORNIZ"],
         ["ENTERO", "FILETEADO", "CORRAL"]),
        (5, 0, 1390, ["QUESO MANCHEGO", "QUESO CABRA", "QUESO TETILLA", "QUESO AZUL", "QUESO BOLA", "QUESO OVEJA"],
         ["TIERNO", "SEMI", "CURADO", "VIEJO"]),
        (6, 1, 129, ["CHORIZO", "SALCHICHÓN", "MORTADELA", "FUET", "MORCILLA", "SOBRASADA", "BUTIFARRA", "CECINA"],
         ["EXTRA", "CULAR", "PICANTE"]),
        (7, 1, 249, ["JAMÓN SERRANO", "JAMÓN IBÉRICO", "JAMÓN COCIDO", "PALETA", "LACÓN"],
         ["LONCHAS", "TACO", "RESERVA"]),
        (8, 2, 450, ["CROQUETAS", "ALBÓNDIGAS", "CACHOPO", "SAN JACOBO", "HAMBURGUESA", "BROCHETA"],
         ["CASERAS", "TERNERA", "POLLO"]),
    ]),
    3: ("PESCADO Y PAN", {1: "PESCADO AZUL", 2: "PESCADO BLANCO", 3: "MARISCO", 4: "CONGELADO", 5: "PANADERIA",
                          6: "BOLLERIA", 7: "PASTELERIA", 8: "DESPENSA"}, [
        (1, 0, 790, ["SARDINA", "BOQUERÓN", "ATÚN", "CABALLA", "JUREL", "SALMÓN", "BONITO"],
         ["ENTERO", "RODAJA", "LIMPIO"]),
        (2, 0, 1250, ["MERLUZA", "RAPE", "LENGUADO", "DORADA", "LUBINA", "BACALAO", "GALLO", "RODABALLO"],
         ["PINCHO", "FILETE", "CRÍA"]),
        (3, 0, 1490, ["GAMBA", "LANGOSTINO", "MEJILLÓN", "ALMEJA", "CALAMAR", "SEPIA", "PULPO", "CIGALA"],
         ["FRESCO", "COCIDO"]),
        (4, 0, 890, ["VARITAS", "ANILLAS", "GULAS", "PALITOS", "TRONCOS"], ["GRANEL", "BOLSA"]),
        (5, 2, 95, ["BARRA", "HOGAZA", "CHAPATA", "MOLLETE", "PISTOLA", "PAN CENTENO", "PAN MOLDE", "PICOS"],
         ["BLANCA", "INTEGRAL", "RÚSTICA", "SIN SAL"]),
        (6, 2, 120, ["CRUASÁN", "ENSAIMADA", "NAPOLITANA", "PALMERA", "MAGDALENA", "BIZCOCHO", "ROSQUILLA"],
         ["SENCILLA", "CHOCOLATE", "CREMA"]),
        (7, 0, 1590, ["TARTA QUESO", "TARTA MANZANA", "BRAZO GITANO", "MILHOJAS", "ROSCÓN"], ["NATA", "TRUFA"]),
        (8, 2, 175, ["ATÚN LATA", "ACEITE OLIVA", "LECHE", "YOGUR", "MIEL", "ARROZ", "LENTEJAS", "VINO MESA",
                     "AGUA", "GALLETAS"], ["250 G", "500 G", "1 L", "PACK 6"]),
    ]),
}
ARTICULOS_POR_SECCION = 200
OPERADORES = ["CARMEN", "JOSÉ LUIS", "PILAR", "ANTONIO", "BEGOÑA", "MANUEL", "DOLORES", "FRANCISCO", "ROCÍO",
              "ÍÑIGO", "MERCEDES", "TOMÁS"]
# code, name, section, kind, address, warehouse, members [(number, scale type, address)], operators by position
GRUPOS = [
    (1, "FRUTERIA MOSTRADOR", 1, 1, 1, 1, [(0, 3, 1), (1, 3, 2), (2, 1, 3)], [1, 2, 3, 4]),
    (2, "CARNICERIA", 2, 1, 2, 1, [(0, 2, 1), (1, 4, 2)], [5, 6, 7, 5]),
    (3, "PESCADERIA", 3, 2, 1, 1, [(0, 7, 1), (1, 7, 2)], [8, 9, 10]),
    (4, "FRUTERIA ISLA", 1, 2, 2, 2, [(0, 7, 1)], [1, 3, 1]),
    (5, "CAJAS DE SALIDA", 2, 3, 1, 1, [(0, 0, 1), (1, 0, 2)], [11, 12]),
    (6, "CAJA DEL PAN", 3, 3, 1, 2, [(0, 0, 1)], [12, 11]),
    (7, "FRUTERIA BIRCH", 1, 4, 7, 2, [(0, 8, 1), (1, 8, 2)], [2, 4, 6, 2]),
    (8, "CHARCUTERIA", 2, 4, 8, 1, [(0, 8, 1), (1, 8, 2), (2, 8, 3)], [5, 7, 9, 10]),
]
MAX_DEPARTAMENTOS = {1: 10, 2: 10, 3: 40, 4: 20}
HORARIO = "09:00|21:00||" * 7


# The label of the groups of scales that print them, and the head of their tickets, also on the label.
ETIQUETA, CON_ETIQUETA = "MOSTRADOR", {1, 2}
PIE_DE_TIQUE = ["P:0:GRACIAS POR SU VISITA", "P:0:"]


def campo(tipo, x, y, tercero=14, cuarto=0, quinto=0):
    """A line of a label format; of a text: its font + 14, the number of its text or line, its quarter turns."""
    return f"{tipo:02d}{x:03d}{y:03d}{tercero:03d}{cuarto:03d}{quinto}"


def formato():
    numero, letra, titulo, grande = 14, 15, 17, 18
    return [campo(0, 191, 0, 0),
            campo(15, 0, 2, 190, 206, 1), campo(16, 6, 20, letra, 1), campo(12, 0, 25, 1, 190),
            campo(7, 6, 50, titulo),
            campo(13, 6, 62, numero, 5), campo(1, 6, 80, letra),
            campo(13, 100, 62, numero, 6), campo(2, 100, 80, letra),
            campo(13, 6, 108, numero, 7), campo(3, 70, 112, grande),
            campo(12, 0, 118, 1, 190),
            campo(13, 6, 132, numero, 10), campo(9, 40, 134, letra), campo(13, 96, 132, numero, 11),
            campo(10, 130, 134, letra), campo(6, 48, 198, 56)]


def lineas(todas):
    return "".join(linea + "\r\n" for linea in todas)


def texto(valor):
    if valor is None:
        return "NULL"
    if isinstance(valor, (int, float)):
        return str(valor)
    valor = "'" + valor.replace("'", "''") + "'"
    return f"replace({valor.replace(chr(13) + chr(10), '|')}, '|', char(13, 10))" if "\r" in valor else valor


def insertar(tabla, fila, orden="INSERT"):
    return f"{orden} INTO {tabla} ({', '.join(fila)}) VALUES ({', '.join(map(texto, fila.values()))});\n"


def ean13(doce):
    suma = sum(int(c) * (3 if i % 2 else 1) for i, c in enumerate(doce))
    return doce + str(-suma % 10)


def nombres(familias):
    """All names of a section, a base with one of its kinds, no longer than a scale shows."""
    for departamento, unidad, centimos, bases, clases in familias:
        for b, base in enumerate(bases):
            for k, clase in enumerate(clases):
                precio = centimos * (90 + 17 * ((b * 7 + k * 3) % 11)) // 100
                yield f"{base} {clase}"[:20], departamento, unidad, precio


def articulos(azar):
    for seccion, (_, _, familias) in SECCIONES.items():
        lista = list(nombres(familias))
        vistos = {nombre for nombre, *_ in lista}
        assert len(vistos) == len(lista), "two articles of one name"
        for n in range(ARTICULOS_POR_SECCION):
            # After the last name the first ones are reused, cheaper and with a number.
            nombre, departamento, unidad, precio = lista[n % len(lista)]
            if n >= len(lista):
                nombre, precio = f"{nombre[:13].rstrip()} OF {n:03d}", precio * 85 // 100
            codigo = 3 + n if n < 150 else 1000 + 5 * (n - 150)
            barras = None
            if unidad == 2 and n % 3 != 1:
                barras = ean13(f"84{seccion}{codigo:09d}")
            yield seccion, codigo, nombre, departamento, unidad, precio, barras, azar.randrange(55, 75)


def fila_articulo(seccion, codigo, nombre, departamento, unidad, precio, barras, margen):
    fila = {"SECCION": seccion, "CODPLU": codigo, "NOMPLU": nombre, "CADA": unidad, "MDF_PRE": 1, "minimo": 0,
            "HASTA_1": 0, "HASTA_2": 0}
    for tarifa in range(8):
        fila[f"PRECIO_0{tarifa}"] = precio * (100 - 2 * tarifa) // 100
        fila[f"PRECIO_1{tarifa}"] = fila[f"PRECIO_2{tarifa}"] = 0
    fila |= {"DEPTO": departamento, "BARRAS": 1, "PFX_BAR": "2", "CodBarExt": barras, "DESCTO": 0, "FORMATO": 1,
             "TEXTO_ETQ": "", "Tara": 1, "NUMDIAS_1": 7, "NUMDIAS_2": 0,
             "STK_MAX": 500 if unidad == 2 else 200000, "STK_MIN": 20 if unidad == 2 else 5000,
             "COSTE": precio * margen // 100}
    return fila


def fila_grupo(codigo, nombre, seccion, tipo, direccion, almacen, operadores):
    fila = {"CODGPO": codigo, "NOMGPO": nombre, "SECCION": seccion, "tarifa": 0, "Almacen": almacen,
            "ADDR": direccion, "TIPO": tipo, "remoto": 3,
            "TELEF": f"127.0.0.1:{PRIMER_PUERTO + codigo - 1},{direccion}", "canal": None, "Baudios": 0, "EnLinea": 0,
            "TK_FLAGS": "11111000", "TK_CPIA": 0, "TK_TCOP": 0}
    for n in range(1, 21):
        fila[f"OP{n:02d}_C"] = operadores[n - 1] if n <= len(operadores) else 0
        fila[f"OP{n:02d}_T"] = 0
    fila |= {f"IVA{n:02d}": iva for n, iva in enumerate([400, 1000, 2100, 0, 0], 1)}
    fila |= {f"IVD{n:02d}": 1 for n in range(1, MAX_DEPARTAMENTOS[tipo] + 1)}
    fila |= {"E13_PE": "CCCCCCKIIIII", "E08_PE": "CCIIIII", "E13_CU": "CCCCCCKIIIII", "E08_CU": "CCIIIII",
             "TOTE": 0, "TOCO": 0, "PITO": 1, "SALT": 1, "PRLI": 1, "HORARIO": HORARIO}
    return fila


def sql(azar):
    yield CABECERA + "BEGIN;\n"
    for tabla in ("BZAS", "GRUPOS", "OPERS", "DEPTS"):
        yield f"DELETE FROM {tabla};\n"
    for seccion, (nombre, departamentos, _) in SECCIONES.items():
        yield insertar("SECCS", {"NMSECC": seccion, "NOMSEC": nombre, "IVAs": "4@10@21@0@0"}, "INSERT OR IGNORE")
        yield f"UPDATE SECCS SET NOMSEC = {texto(nombre)}, IVAs = '4@10@21@0@0' WHERE NMSECC = {seccion};\n"
        for numero, nombre_dep in departamentos.items():
            yield insertar("DEPTS", {"SECCION": seccion, "NUMDEP": numero, "NomDep": nombre_dep, "IVA": 1})
    for codigo, nombre in enumerate(OPERADORES, 1):
        yield insertar("OPERS", {"CODOPE": codigo, "NOMOPE": nombre})
    for codigo, nombre in ((1, "TIENDA"), (2, "MERCADO")):
        yield insertar("ALMACEN", {"CODALM": codigo, "NOMALM": nombre, "FCHINI": 46023.0, "FCHREG": 46023.0},
                       "INSERT OR IGNORE")
    for articulo in articulos(azar):
        yield insertar("PLUSES", fila_articulo(*articulo))
    yield insertar("ETIQUETAS", {"NUMETQ": ETIQUETA, "settxt": None, "CAMPOS": lineas(formato())})
    for codigo, nombre, seccion, tipo, direccion, almacen, miembros, operadores in GRUPOS:
        yield insertar("GRUPOS", fila_grupo(codigo, nombre, seccion, tipo, direccion, almacen, operadores))
        for numero, modelo, addr in miembros:
            maquina = {"SUGPO": codigo, "NMBZA": numero, "ADDR": addr, "TIPO": modelo}
            if codigo in CON_ETIQUETA:
                cabecera = [f"C:1:{nombre}", "C:0:Mercado Central, 12", "C:0:Tel. 555 123 456"]
                maquina |= {"ETQ11": ETIQUETA, "RZSOCIAL": lineas(cabecera + PIE_DE_TIQUE)}
            yield insertar("BZAS", maquina)
    yield ("INSERT OR IGNORE INTO MovsAlm (CODALM, SECCION, CODIGO, Inicial, Entrada, Compra, Salida, Venta, Merma)\n"
           "  SELECT CODALM, SECCION, CODPLU, (STK_MAX + STK_MIN) / 2, 0, 0, 0, 0, 0 FROM ALMACEN, PLUSES\n"
           "  WHERE CODPLU > 2;\n")
    yield "COMMIT;\n"


def maquinas():
    """Groups come from the database (--base FILE): only what it doesn't hold is here."""
    grupos = [{"grupo": codigo} for codigo, *_ in GRUPOS]
    grupos[0] |= {"pedidos": [{"articulo": 3 + 4 * n, "peso": 2500 * (n + 1), "unidades": 0} for n in range(7)],
                  "inventarios": [{"articulo": 5 + 6 * n, "peso": 1200 * (n + 2), "unidades": 0} for n in range(5)]}
    grupos[2] |= {"pedidos": [{"articulo": 4 + 5 * n, "peso": 1500 * (n + 1), "unidades": 0} for n in range(5)]}
    grupos[7] |= {"pedidos": [{"articulo": 8 + 3 * n, "peso": 750 * (n + 3), "unidades": 0} for n in range(4)]}
    return {"semilla": 2026, "dia": {"ventas": 400, "devoluciones": 0.02, "descuentos": 0.08}, "grupos": grupos}


def main():
    defecto = pathlib.Path(__file__).resolve().parent.parent / "datos" / "tienda-demo"
    orden = argparse.ArgumentParser(description="Writes the demo shop.")
    orden.add_argument("carpeta", nargs="?", type=pathlib.Path, default=defecto)
    carpeta = orden.parse_args().carpeta
    carpeta.mkdir(parents=True, exist_ok=True)
    (carpeta / "tienda.sql").write_text("".join(sql(random.Random(1))), encoding="utf-8", newline="\n")
    (carpeta / "maquinas.json").write_text(json.dumps(maquinas(), indent=1, ensure_ascii=False) + "\n",
                                           encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
