"""bench/casa judges a duration only when its run began with nothing in the compiler's cache, had two cores and ended
well; and it ends with 1 when a figure falls short."""
import pathlib
import subprocess
import sys
import tempfile

CASA = pathlib.Path(__file__).resolve().parents[2] / "bench/casa"
# The lines of the file, the judgements of test and ci, the status.
CASOS = [
    ("", "unknown", "unknown", 0),
    ("test 1200 0 0 2\nci 2700 0 0 2\n", "ok", "ok", 0),
    ("test 1201 0 0 2\nci 2700 0 0 2\n", "short", "ok", 1),
    ("test 300 0 0 2\ntest 1300 0 0 2\nci 2701 0 0 2\n", "short", "short", 1),  # the last counts
    ("test 1300 0 0 2\ntest 300 0 1006 2\nci 900 1 0 2\n", "unknown", "unknown", 0),
    ("test 300 0 0 8\nci 900 0 0 2\n", "unknown", "ok", 0),
]


def main():
    fallos = 0
    for texto, test, ci, estado in CASOS:
        with tempfile.TemporaryDirectory() as carpeta:
            fichero = pathlib.Path(carpeta) / "duraciones.txt"
            fichero.write_text(texto)
            fin = subprocess.run([sys.executable, CASA, "--duraciones", fichero], text=True, capture_output=True)
        dichas = {linea.split()[0]: linea.split()[3] for linea in fin.stdout.splitlines()}
        lineas = dichas.pop("casa.lineas_de_ficha", None)
        esperadas = {"casa.test": test, "casa.ci": ci}
        if dichas != esperadas or fin.returncode != (lineas == "short" or estado) or lineas is None:
            fallos += 1
            print(f"{texto!r}: {fin.stdout}{fin.stderr}ended with {fin.returncode}")
    return fallos


sys.exit(min(main(), 1))
