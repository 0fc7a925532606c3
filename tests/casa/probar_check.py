"""Plants a breach of each rule of ./check in a copy of the tree, one at a time, and expects it to be reported.

A rule works if it finds no fault in the tree as it is, and reports the planted one."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

RAIZ = pathlib.Path(__file__).resolve().parents[2]
copia = None


def orden(*palabras, **mas):
    return subprocess.run(palabras, cwd=copia, text=True, capture_output=True, **mas)


def copiar(adonde):
    """Copies the tree in its current state, with its history."""
    subprocess.run(["git", "clone", "-q", "--shared", RAIZ, adonde], check=True)
    for nombre in subprocess.run(["git", "ls-files", "-dmo", "--exclude-standard"], cwd=RAIZ, text=True,
                                 capture_output=True, check=True).stdout.splitlines():
        (adonde / nombre).unlink(missing_ok=True)
        if (RAIZ / nombre).is_file():
            (adonde / nombre).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(RAIZ / nombre, adonde / nombre)


def anade(nombre, texto):
    def hacer():
        camino = copia / nombre
        camino.parent.mkdir(parents=True, exist_ok=True)
        camino.write_text((camino.read_text() if camino.exists() else "") + texto)
    return hacer


def cambia(nombre, patron, por):
    def hacer():
        texto, veces = re.subn(patron, por, (copia / nombre).read_text(), count=1, flags=re.M)
        assert veces, f"{nombre} has no {patron}"
        (copia / nombre).write_text(texto)
    return hacer


def asunto():
    orden("git", "-c", "user.name=x", "-c", "user.email=x", "commit", "-q", "--allow-empty", "-m", "Say " + "much " * 20)


def archivo():
    carpeta = copia / "build/src/x"
    carpeta.mkdir(parents=True)
    (carpeta / "x.cpp").write_text("struct QWidget { void show(); };\nvoid f(QWidget* w) { w->show(); }\n")
    orden("c++", "-c", "build/src/x/x.cpp", "-o", "build/src/x/x.o", check=True)
    orden("ar", "qc", "build/src/x/libx.a", "build/src/x/x.o", check=True)


TABLA, TEXTOS = "docs/architecture.md", "datos/textos/es.txt"
FORMA = "src/comm/ventanas/Prueba.ui"
# The cases contain none of the forbidden words, since ./check examines this file too.
CASOS = [
    ("salas", anade("src/comm/tramas/Prueba.cpp", '#include "core/dao/Valor.h"\n'), r"Prueba.cpp:1: tramas includes dao"),
    # Headers that the build makes from the table of texts: a room's own, and one for all rooms below its folder.
    ("salas", anade("src/comm/tramas/Prueba.cpp", '#include "comm/motor/TextosMotor.h"\n'), r"Prueba.cpp:1: tramas includes motor"),
    ("salas", anade("src/comm/tramas/Prueba.cpp", '#include "core/ventanas/TextosVentanas.h"\n'),
     r"Prueba.cpp:1: tramas includes src/core/ventanas"),
    ("salas", cambia(TABLA, r"^\| `stock` \|", "| `stock` | `dinero`"), r"stock may include dinero, and nothing"),
    ("salas", cambia("src/stock/CMakeLists.txt", r"LINKS", "LINKS dinero"), r"stock links dinero, unlike its row"),
    ("salas", cambia("src/stock/CMakeLists.txt", r"LINKS \w+", "LINKS"), r"stock doesn't link \w+, unlike its row"),
    ("salas", cambia(TABLA, r"^\| `stock` .*\n", ""), r"the room stock is missing"),
    ("salas", cambia(TABLA, r"^\| `stock`", "| `nada` | | |\n| `stock`"), r"there is no room nada"),
    ("ventanas", anade("src/articles/ventanas/Prueba.cpp", '#include "comm/ventanas/Grupos.h"\n'), r"a window of comm"),
    ("ventanas", anade("src/stock/Prueba.cpp", '#include "core/ventanas/marco/Ventana.h"\n'), r"a window of core"),
    ("ventanas", cambia("src/stock/CMakeLists.txt", r"LINKS", "LINKS core_ventanas"), r"stock: is an engine and links"),
    ("ventanas", cambia("src/articles/ventanas/CMakeLists.txt", r"LINKS", "LINKS comm_ventanas"),
     r"articles_ventanas: links the windows comm_ventanas"),
    ("iconos", anade("src/stock/Prueba.cpp", 'auto i = icono(u"unicornio");\n'), r"no drawing .*unicornio"),
    ("incluidos", anade("src/stock/Prueba.cpp", "#include <sqlite3.h>\n"), r"Prueba.cpp:1: only .* may know SQLite"),
    ("incluidos", anade("src/stock/Prueba.cpp", "#include <QWidget>\n"), r"no widget in an engine"),
    ("tiempo_y_azar", anade("src/stock/Prueba.cpp", "auto d = QDate::currentDate();\n"), r"time comes from Reloj"),
    ("tamano", anade("src/stock/Prueba.cpp", "// line\n" * 501), r"501 lines, above 500"),
    ("carpetas", lambda: [anade(f"src/stock/Prueba{n}.cpp", "\n")() for n in range(21)], r"src/stock: \d+ sources"),
    ("pruebas", anade("tests/stock/Nada.cpp", "TEST(Nada, Nada) {}\n"), r"Nada.cpp: a file with tests is named"),
    ("pruebas", anade("tests/stock/PruebaNada.cpp", "int nada;\n"), r"PruebaNada.cpp: no tests here"),
    ("pruebas", anade("tests/stock/PruebaNada.cpp", "TEST(Na_da, Nada) {}\n"), r"the suite Na_da"),
    ("pruebas", anade("tests/stock/PruebaNada.cpp", "TEST(Nada,\n     StocksOfTheShop) {}\n"), r"StocksOfTheShop: tests and suites"),
    ("pruebas", anade("tests/stock/PruebaNada.cpp", "TEST_F(NadaTest, Nada) {}\n"), r"NadaTest: tests and suites"),
    ("asuntos", asunto, r"a subject of \d+ characters"),
    ("textos", anade(TEXTOS, "99999\tNadie lo dice.\tapp.kTxNadieLoDice\n"), r"the name kTxNadieLoDice is used nowhere"),
    ("textos", anade(TEXTOS, "99999\tNadie lo dice.\n"), r"number 99999 is used nowhere"),
    ("gemelos", anade(TEXTOS, "#= 99999\tapp.kTxNadieLoDice\n"), r"99999 is named here, and has no text"),
    ("gemelos", anade(TEXTOS, "99999\tLista guardada en %1\tapp.kTxNadieLoDice\n"), r"99999 is 1034 again"),
    ("textos", anade(FORMA, "<string>TXT99999</string>\n"), r"number 99999 is not in"),
    ("textos", anade(FORMA, "<string>Una frase</string>\n"), r"a form shows keys only"),
    ("frases", anade("src/stock/Prueba.cpp", 'auto s = u"No hay artículos";\n'), r"Prueba.cpp:1: a sentence"),
    ("frases", anade("src/stock/Prueba.cpp", 'clave<&A::b>(905, u"No hay artículos");\n'), r"Prueba.cpp:1: a sentence"),
    ("ajustes", anade("src/stock/Prueba.h", "SalaDeAjustes ajustesPrueba();\n"), r"Prueba.h: ajustesPrueba is not listed"),
    ("sql", anade("src/stock/Prueba.cpp", "r = rs->MoveNext();\n"), r"Prueba.cpp:1: rows are walked by"),
    ("sql", anade("src/stock/Prueba.cpp", 'auto s = u"DELETE FROM %1 WHERE LINK=?";\n'), r"marks have no names"),
    ("sql", anade("src/totals/libros/Prueba.cpp", "r = rs->MoveNext();\n"), r"Prueba.cpp:1: rows are walked by"),
    ("sql", anade("src/articles/Prueba.cpp", 'auto s = QString(u"SELECT count(*) "\n  u"FROM "_s) + tabla;\n'),
     r"Prueba.cpp:1: a statement glued from pieces"),
    *[("datos", anade(f"src/{sala}/ventanas/Prueba.cpp", f"{linea}\n"), r"Prueba.cpp:1: a window takes the database")
      for sala, linea in (("comm", "auto n = contexto().db.cambios();"), ("articles", "f(contexto().db);"),
                          ("articles/precios", "f(catalogo_.base());"), ("app", "f(contexto().base.tienda());"),
                          ("totals", "  dao::Database& db_;"))],
    ("datos", cambia("src/core/ventanas/marco/Contexto.h", r"^  Base base;", "  dao::Database& tienda;"),
     r"Contexto.h:\d+: the context hands the store"),
    ("salas", anade("src/comm/tramas/Prueba.cpp", '#include "totals/ventanas/Puertas.h"\n'), r"tramas includes totals_ventanas"),
    ("datos", anade("src/comm/ventanas/Prueba.cpp", '#include "core/dao/Database.h"\n'), r"data work in a window"),
    *[("listas", anade("src/comm/ventanas/Prueba.cpp", f"{linea}\n"), r"Prueba.cpp:1: a (piece of SQL|window makes)")
      for linea in ("ventanas::Ori" + "gen o;", 'auto s = u"GRUPOS"_s;', 'auto s = u"t.CODI"_s;', 'auto s = u"sum(IMP)"_s;',
                    'auto s = u"SITUACION=?"_s;', 'auto s = u"GRUPOS LEFT JOIN SECCS ON"_s;', 'auto s = u"FECHA1 DESC"_s;',
                    'auto s = u"GRUPOS.rowid"_s;', 'auto s = u" AND TARIFA"_s;')],
    ("manual", anade("src/comm/ventanas/Prueba.cpp", 'v.registrar<PuertaUnicornio, Unicornio>();\n'),
     r"the window Unicornio has no page"),
    ("manual", anade("docs/manual/Unicornio.md", "# Unicornio\n"), r"there is no window Unicornio"),
    ("manual", cambia("docs/manual/VerTot.md", r"VerCols\.md", "Unicornio.md"), r"leads to Unicornio.md, which isn't there"),
    ("manual", cambia("docs/manual/Manual.md", r"\(VerTot\.md\)", "()"), r"doesn't lead to VerTot"),
    ("manual", cambia("docs/manual/VerTot.md", r"## Cómo se hace", "## Uso"), r"begins with its title"),
    ("teclas", anade("src/stock/ventanas/Prueba.cpp", 'unir(ui_.Nada, u"borrar"_s, Qt::Key_F7, [] {});\n'),
     r"Nada has the key F7"),
    *[("teclas", anade("src/stock/ventanas/Prueba.cpp", f"{linea}\n"), dice) for linea, dice in (
        ('entrada(m, u"Nada"_s, kTxNada, [this] {\n  hacer();\n})->setShortcut(Qt::Key_F7);', r"Nada has the key F7"),
        ("connect(new QShortcut(Qt::Key_F7, this), &QShortcut::activated, this,\n  &Nada::hacer);", r"hacer has the key F7"),
        ("if (tecla == Qt::Key_F7) hacer();", r"hacer has the key F7"),
        ("if (e.key() == Qt::Key_F7 || otra) {\n  hacer();\n}", r"hacer has the key F7"),
        ("const bool suya = e.key() == Qt::Key_F7;", r"F7 is given to no command"))],
    ("teclas", anade("src/stock/ventanas/Prueba.cpp", "nada->setShortcuts({Qt::Key_F9, Qt::Key_F6});\n"),
     r"nada has the key F6, and its row"),
    ("teclas", cambia("src/core/ventanas/parrilla/ParrillaMontaje.cpp", r"Qt::CTRL \| Qt::SHIFT \| Qt::Key_S", "Qt::Key_F10"),
     r"exportar has the key F10"),
    ("teclas", cambia("src/core/ventanas/parrilla/ParrillaTeclas.cpp", r"Qt::Key_D &&", "Qt::Key_E &&"), r"rellenar has the key Ctrl\+E"),
    ("teclas", cambia("docs/ventanas.md", r"^\| `F10` \|(.*)\|$", r"| `F10` |\1 `nadie` |"), r"nadie hasn't the key F10"),
    ("paquetes", anade("src/stock/Prueba.txt", "apt" + " install unicornio\n"), r"the only list of packages"),
    ("palabras", anade("src/stock/Prueba.cpp", "// FIX" + "ME\n"), r"a word that must not be"),
    ("simbolos", archivo, r"libx.a: takes QWidget"),
]


def probar(regla, plantar, dice):
    plantar()
    fin = orden(sys.executable, "check", regla)
    return None if fin.returncode == 1 and re.search(dice, fin.stdout) else fin.stdout + fin.stderr


def main():
    global copia
    fallos = 0
    with tempfile.TemporaryDirectory() as carpeta:
        copia = pathlib.Path(carpeta) / "casa"
        copiar(copia)
        orden("git", "add", "-A", check=True)
        orden("git", "-c", "user.name=x", "-c", "user.email=x", "commit", "-q", "--allow-empty", "-m", "Copy", check=True)
        limpio = orden("git", "rev-parse", "HEAD", check=True).stdout.strip()
        for regla, plantar, dice in CASOS:
            salida = probar(regla, plantar, dice)
            if salida is not None:
                fallos += 1
                print(f"{regla}: /{dice}/ wasn't named:\n{salida}")
            orden("git", "reset", "-q", "--hard", limpio, check=True)
            orden("git", "clean", "-fdxq", check=True)
        reglas = set(re.findall(r"^def regla_(\w+)", (copia / "check").read_text(), re.M))
        for regla in sorted(reglas - {caso[0] for caso in CASOS}):
            fallos += 1
            print(f"{regla}: nothing is planted for this rule")
    print(f"{len(CASOS)} breaches planted, {fallos} not named")
    return 1 if fallos else 0


sys.exit(main())
