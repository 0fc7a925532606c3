#include "dias/Tienda.h"
#include "app/AjustesSalas.h"
#include "comm/cables/AjustesCables.h"
#include "comm/motor/AjustesMotor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "textos/TextosDePrueba.h"

namespace tarvo::dias {

using simulador::Tipo;

namespace {

QString sitio() {
  const QFileInfo memoria(QStringLiteral("/dev/shm"));
  return (memoria.isWritable() ? memoria.filePath() : QDir::tempPath()) +
         QStringLiteral("/dias-XXXXXX");
}

class SinPreguntas final : public automation::Preguntas {
  std::optional<qint64> PromptNum(const QString&, const QString&) override { return {}; }
  std::optional<QString> PromptStr(const QString&, const QString&) override { return {}; }
  std::optional<std::pair<Fecha, Fecha>> PromptFch(const QString&, const QString&) override {
    return {};
  }
};

// The folder of a shop as left by a first start, created once.
const QString& plantilla() {
  static const QTemporaryDir carpeta(sitio());
  static const QString ruta = [] {
    RelojVirtual reloj(Fecha::de(QDate(2026, 1, 1)));
    const auto fondo = app::Fondo::abrir(carpeta.path(), Idioma::Espanol, textosDePrueba(), reloj);
    if (!fondo) qFatal("%s", qPrintable(fondo.error().texto));
    return (*fondo)->db->ruta();
  }();
  return ruta;
}

QByteArray n(qint64 x) {
  return QByteArray::number(x);
}

}  // namespace

Resultado<std::unique_ptr<Programa>> Programa::arrancar(const QString& carpeta, Reloj& reloj,
                                                        noches::Hilos& hilos, quint64 semilla) {
  auto fondo = app::Fondo::abrir(carpeta, Idioma::Espanol, textosDePrueba(), reloj);
  if (!fondo) return std::unexpected(fondo.error());
  auto p = std::make_unique<Programa>();
  p->fondo_ = std::move(*fondo);
  p->preguntas_ = std::make_unique<SinPreguntas>();
  p->aplicacion_ =
      std::make_unique<app::Aplicacion>(*p->fondo_, reloj, hilos, semilla, *p->preguntas_);
  TARVO_INTENTAR(p->aplicacion_->empezar());
  return p;
}

Tienda::Tienda(quint64 semilla, QDate primerDia)
    : azar(semilla * 2654435761U + 29),
      reloj(Fecha::de(primerDia, QTime(8, 0))),
      hilos(reloj, semilla + 1),
      carpeta_(sitio()) {
  const QString ruta = carpeta_.filePath(QStringLiteral("TARVO.MDB"));
  if (!QFile::copy(plantilla(), ruta)) qFatal("no se puede copiar la base de datos");
  Ajustes a(carpeta_.path(), Idioma::Espanol, app::ajustesDeLasSalas(reloj.ahora()));
  for (auto& canal : a.de<enlace::AjustesCables>().canales) canal.Device = TipoAcceso::TcpIp;
  a.de<motor::AjustesMotor>().IntentosManual = azar.entero(0, 4);
  if (const auto r = a.GuardarConfig(); !r) qFatal("%s", qPrintable(r.error().texto));
  base = std::make_unique<noches::Lector>(ruta);
  insertar();
}

void Tienda::insertar() {
  base->filas("BEGIN");
  base->filas("DELETE FROM BZAS");
  base->filas("DELETE FROM GRUPOS");
  secciones = azar.entero(1, 3);
  for (int s = 1; s <= secciones; ++s) {
    base->filas("INSERT OR IGNORE INTO SECCS (NMSECC, NOMSEC) VALUES (" + n(s) + ", 'S')");
    for (int d = 1; d <= 6; ++d)
      base->filas("INSERT INTO DEPTS (SECCION, NUMDEP, NomDep) VALUES (" + n(s) + ", " +
                  n(d == 6 ? 12 : d) + ", 'D')");
  }
  const int cuantos = azar.entero(1, 4);
  grupos.reserve(static_cast<std::size_t>(cuantos));
  for (int g = 1; g <= cuantos; ++g) {
    Grupo& grupo = grupos.emplace_back();
    grupo.codigo = g * 3 - 1;
    grupo.seccion = azar.entero(1, secciones);
    grupo.tarifa = azar.entero(0, 7);
    grupo.tipo =
        static_cast<Tipo>(azar.ocurre(0.5) ? (azar.ocurre(0.5) ? 1 : 4) : azar.entero(2, 3));
    std::vector<int> direcciones{grupo.tipo == Tipo::Ebony ? g : g * 10};
    if (grupo.tipo == Tipo::Registradora && azar.ocurre(0.4)) direcciones.push_back(g * 10 + 1);
    const bool conector = azar.ocurre(0.3);
    const QString acceso =
        conector ? QStringLiteral("CON%1").arg(g) : QStringLiteral("10.0.0.%1:1024").arg(g);
    insertarGrupo(grupo, conector ? 4 : 3, 0, acceso, g, direcciones);
    for (const int direccion : direcciones) {
      simulador::OpcionesMaquina o;
      o.tipo = grupo.tipo;
      o.grupo = grupo.codigo;
      o.direccion = direccion;
      o.balanzas = {1};
      MaquinaViva& m = maquinas.emplace_back();
      m.grupo = &grupo;
      m.maquina = simulador::crearMaquina(o, reloj);
      hilos.cables[acceso].poner(*m.maquina);
    }
  }
  base->filas("COMMIT");
}

void Tienda::insertarGrupo(const Grupo& g, int remoto, int canal, const QString& acceso, int addr,
                           const std::vector<int>& direcciones) {
  base->filas(
      "INSERT INTO GRUPOS (CODGPO, NOMGPO, SECCION, tarifa, Almacen, remoto, canal, TELEF, "
      "Baudios, ADDR, TIPO) VALUES (" +
      n(g.codigo) + ", 'G', " + n(g.seccion) + ", " + n(g.tarifa) + ", 0, " + n(remoto) + ", " +
      n(canal) + ", '" + acceso.toUtf8() + "', 0, " + n(addr) + ", " + n(static_cast<int>(g.tipo)) +
      ")");
  base->filas("INSERT OR IGNORE INTO Sesiones (CODGPO) VALUES (" + n(g.codigo) + ")");
  for (std::size_t i = 0; i < direcciones.size(); ++i)
    base->filas("INSERT INTO BZAS (SUGPO, NMBZA, ADDR, TIPO) VALUES (" + n(g.codigo) + ", " +
                n(static_cast<int>(i) + 1) + ", " + n(direcciones[i]) + ", 1)");
}

}  // namespace tarvo::dias
