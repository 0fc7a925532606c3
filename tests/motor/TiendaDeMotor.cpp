#include "motor/TiendaDeMotor.h"
#include "comm/configuracion/Aceptado.h"
#include "comm/tareas/AjustesListas.h"

#include "comm/envios/TablasEnvios.h"
#include "core/esquema/Esquema.h"
#include "textos/TextosDePrueba.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/TablasTotales.h"

namespace tarvo::prueba {

TiendaDeMotor::TiendaDeMotor(std::vector<SalaDeAjustes> salas) {
  for (const SalaDeAjustes& sala :
       {enlace::ajustesCables(), enlace::ajustesEnlace(), motor::ajustesMotor(),
        totals::ajustesSesion(), tareas::ajustesListas()})
    salas.push_back(sala);
  ajustes = std::make_unique<Ajustes>(carpeta_.path(), Idioma::Espanol, salas);
  for (auto& canal : cables().canales) canal.Device = TipoAcceso::Directo;
  arrancar();
  bien(esquema::crearEsquema(*db));
  bien(totals::asegurarTablasLibros(*db));
  bien(totals::asegurarTablasTotales(*db));
  bien(tareas::asegurarTablasTareas(*db));
  bien(envios::asegurarTablasEnvios(*db));
  bien(dao::darPasos(*db, {configuracion::tablasConfiguracion()}));
  seccion(1).almacen(0);
}

void TiendaDeMotor::arrancar(bool reanuda) {
  gestor.reset();
  enlaces.reset();
  sesion.reset();
  db.reset();
  db = bien(
      dao::Database::OpenDatabase(carpeta_.path() + QStringLiteral("/TARVO.MDB"), {.crear = true}));
  sesion = std::make_unique<totals::Sesion>(*db, *ajustes, reloj, textosDePrueba());
  if (db->existeTabla(u"EstadoTarvo")) bien(sesion->cargar());
  sesion->ponerEjecucion(1, reanuda);
  enlaces = std::make_unique<enlace::Enlaces>(reloj, *ajustes, fabrica, azar);
  gestor = std::make_unique<motor::gestcomm>(
      motor::Entorno{*db, *ajustes, reloj, *sesion, textosDePrueba(), enEspera}, *enlaces,
      repertorio);
  gestor->VigilaProcesos(3, true, this);
  ultima_ = 0;
}

void TiendaDeMotor::grupo(int numero, int tipo, const QString& acceso,
                          std::vector<int> direcciones) {
  const bool cable = acceso.startsWith(u"cable ");
  const bool tel = acceso.startsWith(u"tel:"), tcp = acceso.startsWith(u"tcp:");
  const int remoto = cable ? 2 : tel ? 1 : tcp ? 3 : 4;
  const QString nombre = tel || tcp ? acceso.mid(4) : acceso;
  Tienda::grupo(
      {.codigo = numero,
       .tipo = tipo,
       .almacen = 0,
       .remoto = remoto,
       .acceso = cable ? V() : V(tcp ? QString(nombre + QStringLiteral(":4000")) : nombre),
       .addr = direcciones.front(),
       .mas = {{u"canal", cable ? V(acceso.mid(6).toInt()) : V()}}})
      .fila(u"Sesiones", {{u"CODGPO", numero}});
  for (int n = 1; n <= 20; ++n)
    sql(QStringLiteral("UPDATE GRUPOS SET OP%1_C=%2 WHERE CODGPO=?")
            .arg(n, 2, 10, QLatin1Char('0'))
            .arg(n),
        numero);
  for (size_t i = 0; i < direcciones.size(); ++i) {
    fila(u"BZAS", {{u"SUGPO", numero},
                   {u"NMBZA", static_cast<int>(i)},
                   {u"ADDR", direcciones[i]},
                   {u"TIPO", 1}});
    if (tipo != 3 && i > 0) continue;
    simulador::OpcionesMaquina o;
    o.tipo = static_cast<simulador::Tipo>(tipo);
    o.grupo = numero;
    o.direccion = direcciones[i];
    auto m = simulador::crearMaquina(o, reloj);
    fabrica.cables[nombre].poner(*m);
    maquinas_[{numero, direcciones[i]}] = std::move(m);
  }
}

void TiendaDeMotor::articulo(int codigo, const QString& barras) {
  Tienda::articulo({.codigo = codigo,
                    .cada = 0,
                    .barras = barras.isEmpty() ? V() : V(barras),
                    .mas = {{u"PFX_BAR", u"21"}}});
}

void TiendaDeMotor::fallo(int grupo, simulador::Paso paso, int addr) {
  simulador::Fallos f = maquina(grupo, addr).percances().fallos();
  f.guion.push_back(paso);
  maquina(grupo, addr).percances().cambiar(f);
}

void TiendaDeMotor::vender(int grupo, int articulo, qint64 importe, qint64 gramos, int operador,
                           int addr) {
  simulador::Venta v;
  v.articulo = articulo;
  v.importe = importe;
  v.peso = gramos;
  v.operador = operador;
  v.departamento = 1 + articulo % 3;
  maquina(grupo, addr).sell(v);
}

int TiendaDeMotor::encolar(int grupo, int clase, bool todo, qint64 desde, qint64 hasta) {
  const auto r = gestor->NuevaTarea(grupo, todo, desde, hasta, *deNumero<TipoTarea>(clase));
  EXPECT_EQ(r, motor::Pedida::EnCola);
  return r == motor::Pedida::EnCola ? ++ultima_ : -1;
}

bool TiendaDeMotor::correr(int minutos) {
  for (int i = 0; i < minutos * 120; ++i) {
    if (gestor->CuantosQuedan().total == 0) return true;
    reloj.avanzar(500);
  }
  return gestor->CuantosQuedan().total == 0;
}

const motor::VistaTarea* TiendaDeMotor::tarea(int id) {
  vista_ = gestor->tareas();
  for (const auto& t : vista_)
    if (t.datos.Id == id) return &t;
  return nullptr;
}

QString TiendaDeMotor::filas(const QString& sql) {
  auto rs = bien(db->consultar(sql));
  QStringList salida;
  while (rs && !rs->Eof()) {
    QStringList fila;
    for (int c = 0; c < rs->numColumnas(); ++c) fila << rs->texto(c);
    salida << fila.join(QLatin1Char(','));
    bien(rs->MoveNext());
  }
  return salida.join(QLatin1Char(';'));
}

QString TiendaDeMotor::bandeja(int grupo, int clase) {
  const totals::ClaseTotal& c = totals::claseDe(*deNumero<TipoTotal>(clase));
  return filas(QStringLiteral("SELECT CODI%1 & ':' & CON & '/' & PES & '/' & IMP & '/' & SCO FROM "
                              "%2 WHERE LINK=0 AND "
                              "GRUPO=%3 ORDER BY CODI%4")
                   .arg(c.conHora ? QStringLiteral(" & '.' & HORA") : QString())
                   .arg(QString::fromUtf16(c.tabla))
                   .arg(grupo)
                   .arg(c.conHora ? QStringLiteral(", HORA") : QString()))
      .replace(QLatin1Char(';'), QLatin1Char(' '));
}

QStringList TiendaDeMotor::oidas(int grupo, int addr) {
  QStringList salida;
  for (const auto& p : maquina(grupo, addr).oidas())
    salida << QStringLiteral("%1 %2").arg(p.codigo).arg(QString::fromLatin1(p.datos)).trimmed();
  return salida;
}

void TiendaDeMotor::InformeProblema(TipoTarea clase, int grupo, int error, int estado, qint64) {
  problemas
      << QStringLiteral("%1 G%2 E%3 (%4)").arg(numeroDe(clase)).arg(grupo).arg(error).arg(estado);
}

void TiendaDeMotor::InformeRetry(TipoTarea clase, int grupo, int error, int, qint64) {
  reintentos << QStringLiteral("%1 G%2 E%3").arg(numeroDe(clase)).arg(grupo).arg(error);
}

void TiendaDeMotor::InformeAviso(const totals::Aviso& aviso) {
  avisos << aviso.texto;
}

Resultado<> TiendaDeMotor::TareaHecha(const motor::DatosTarea& tarea) {
  if (alHacer) alHacer();
  if (hecha) hechas << QStringLiteral("%1 G%2").arg(numeroDe(tarea.Clase)).arg(tarea.Grupo);
  return hecha;
}

}  // namespace tarvo::prueba
