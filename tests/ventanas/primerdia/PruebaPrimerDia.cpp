// The first day of a new shop, and its first night.
#include <QFile>
#include <QLabel>

#include "automation/Automat.h"
#include "core/ventanas/marco/Ventana.h"
#include "dias/Ficha.h"
#include "totals/libros/Cuadre.h"
#include "ventanas/primerdia/TiendaNueva.h"

namespace tarvo::primerdia {

using simulador::Tipo;

namespace {

struct UnGrupo {
  QString nombre, acceso;
  Tipo tipo = Tipo::Balanzas;
  QStringList modelos;
  std::vector<int> direcciones;
};
const std::vector<UnGrupo> kGrupos{
    {u"MOSTRADOR"_s, u"10.0.0.1:1024"_s, Tipo::Balanzas, {u"Rowan"_s, u"Maple"_s}, {0}},
    {u"PASILLO"_s, u"10.0.0.2:1024"_s, Tipo::Birch, {u"Birch"_s}, {0}},
    {u"CAJAS"_s, u"10.0.0.3:1024"_s, Tipo::Registradora, {u"Caja"_s, u"Caja"_s}, {1, 2}},
    {u"ALMACEN"_s, u"10.0.0.4:1024"_s, Tipo::Ebony, {u"Ebony"_s}, {4}}};

struct UnArticulo {
  int codigo = 0;
  QString nombre, precio;
  qint64 centimos = 0;
  int depto = 0;
};
const std::vector<UnArticulo> kArticulos{{10, u"MANZANA"_s, u"1,95"_s, 195, 1},
                                         {11, u"PERA"_s, u"2,05"_s, 205, 1},
                                         {20, u"ACELGA"_s, u"1,20"_s, 120, 2}};

const QString kLineas[] = {u"FRUTERIA PEPE"_s, u"CALLE MAYOR 1"_s};
const QString kOperadores[] = {u"ANA"_s, u"LUIS"_s};

// The process of a night: its file is what another window will write one day.
const QByteArray kNoche =
    "N:Se recoge todo, se memoriza y se pone a cero\r\nT:RXGRTOT,ALL\r\n"
    "T:RXPLUS,ALL, S\xED, 0000000, 9999999\r\nT:RXDEPAR,ALL\r\nC:ESPERA, 3, S\xED\r\n"
    "S:CERRAR, Noche del #D-#M-#A, S\xED, S\xED\r\nT:TX_ZERO,ALL, No\r\nC:ESPERA, 3, S\xED\r\n";

QByteArray ceros(int n, int ancho) {
  return QByteArray::number(n).rightJustified(ancho, '0');
}

}  // namespace

// Each step leaves the main window in front.
struct PrimerDia : testing::Test, TiendaNueva {
  Persona& p = persona;

  void desdeLaPrincipal(const QString& entrada, const QString& ventana) {
    ASSERT_TRUE(p.en(u"MainTarvo"_s));
    p.pulsar(entrada);
    ASSERT_TRUE(p.en(ventana));
  }
  void catalogo();
  void articulo(const UnArticulo& a);
  void operadores();
  void canales();
  void etiqueta();
  void grupos();
  void grupo(const UnGrupo& g, int codigo);
  void hojasDe(const UnGrupo& g);
  void guardar(const UnGrupo& g, int codigo);
  void comprobarMaquinas();
  void comprobarConfiguracion(const UnGrupo& g, const simulador::Maquina& m);
  void vender(int dia);
  void enGrupos(Qt::Key menu, const QString& entrada);
  void ponerACero();
  void abrir();
  void recoger();
  void noche();
  void comprobarLibros(int dias);

  std::vector<std::vector<simulador::Maquina*>> suyas;  // by group, from 0
  // By group and article, of all days: what the books must hold.
  std::map<std::pair<int, int>, qint64> vendido;
};

void PrimerDia::catalogo() {
  desdeLaPrincipal(u"Articulos"_s, u"BrowGrupos"_s);
  p.tecla(Qt::Key_F2);
  p.escribir(u"FRUTERIA"_s);
  p.tecla(Qt::Key_Return);
  for (const QString& d : {u"FRUTA"_s, u"VERDURA"_s}) {
    p.tecla(Qt::Key_Insert);
    p.escribir(d);
    p.tecla(Qt::Key_Return);
  }
  EXPECT_EQ(leer("SELECT NMSECC, NOMSEC FROM SECCS"), "1 FRUTERIA");
  ASSERT_EQ(leer("SELECT NUMDEP, NomDep FROM DEPTS"), "1 FRUTA | 2 VERDURA");
  p.foto(u"departamentos"_s);
  for (int d = 1; d <= 2; ++d) {
    if (d == 1) p.tecla(Qt::Key_Up);
    p.tecla(Qt::Key_F4);
    ASSERT_TRUE(p.en(u"BrowPLUs"_s));
    for (const UnArticulo& a : kArticulos)
      if (a.depto == d) articulo(a);
    p.luego([&] { p.pulsar(u"No"_s); });  // no machine is there to get them
    p.tecla(Qt::Key_Escape);
    ASSERT_TRUE(p.en(u"BrowGrupos"_s));
    p.tecla(Qt::Key_Down);
  }
  p.tecla(Qt::Key_Escape);
}

void PrimerDia::articulo(const UnArticulo& a) {
  p.tecla(Qt::Key_Insert, Qt::ControlModifier);
  ASSERT_TRUE(p.en(u"xEditPLU"_s));
  p.escribir(QString::number(a.codigo));
  p.tecla(Qt::Key_Tab);
  p.escribir(a.nombre);
  ASSERT_TRUE(p.ir(u"GrdPre"_s));
  p.escribir(a.precio);
  p.tecla(Qt::Key_Return);
  p.foto(u"articulo"_s);
  p.pulsar(u"Guardar"_s);
  ASSERT_TRUE(p.en(u"BrowPLUs"_s));
}

void PrimerDia::operadores() {
  desdeLaPrincipal(u"Operadores"_s, u"BrowOper"_s);
  for (const QString& nombre : kOperadores) {
    p.tecla(Qt::Key_Insert);
    p.escribir(nombre);
    p.tecla(Qt::Key_Return);
  }
  EXPECT_EQ(leer("SELECT CODOPE, NOMOPE FROM OPERS WHERE NOMOPE IN ('ANA', 'LUIS')"),
            "1 ANA | 2 LUIS");
  p.tecla(Qt::Key_Escape);
}

void PrimerDia::canales() {
  ASSERT_TRUE(p.en(u"MainTarvo"_s));
  p.pulsar(u"Avanzados"_s);
  p.pulsar(u"Configuracion"_s);
  ASSERT_TRUE(p.en(u"PortalCnf"_s));
  p.pulsar(u"Comunicaciones"_s);
  ASSERT_TRUE(p.en(u"CfgComm"_s));
  for (const QString& canal : {u"Device1"_s, u"Device2"_s}) p.elegir(canal, u"TCP/IP"_s);
  p.foto(u"canales"_s);
  p.pulsar(u"Acepto"_s);
  ASSERT_TRUE(p.en(u"PortalCnf"_s));
  p.tecla(Qt::Key_Escape);
}

void PrimerDia::etiqueta() {
  desdeLaPrincipal(u"Etiquetas"_s, u"EdiEtqu"_s);
  p.escribir(u"PESO"_s);
  p.tecla(Qt::Key_Return);
  for (const auto& [campo, abajo] : {std::pair{u"NOMBRE PLU"_s, 2}, {u"PESO"_s, 8}}) {
    p.tecla(Qt::Key_Insert);
    p.enMenu(campo);
    for (int n = 0; n < abajo; ++n) p.tecla(Qt::Key_Down, Qt::ShiftModifier);
  }
  p.foto(u"etiqueta"_s);
  p.tecla(Qt::Key_S, Qt::ControlModifier);
  ASSERT_EQ(leer("SELECT NUMETQ, length(CAMPOS) > 20 FROM ETIQUETAS"), "PESO 1");
  p.tecla(Qt::Key_Escape);
}

// The group that every new shop has doesn't communicate: it goes.
void PrimerDia::grupos() {
  desdeLaPrincipal(u"Balanzas"_s, u"BrowGrupos"_s);
  p.tecla(Qt::Key_Down);
  p.luego([&] { p.pulsar(u"Acepto"_s); });
  p.tecla(Qt::Key_Delete);
  ASSERT_EQ(leer("SELECT count(*) FROM GRUPOS"), "0");
  for (size_t n = 0; n < kGrupos.size(); ++n) {
    grupo(kGrupos[n], static_cast<int>(n) + 1);
    ASSERT_FALSE(HasFatalFailure());
  }
  p.tecla(Qt::Key_Escape);
}

void PrimerDia::grupo(const UnGrupo& g, int codigo) {
  const bool cajas = g.tipo == Tipo::Registradora;
  if (cajas)
    p.pulsar(u"NuevasCajas"_s);
  else
    p.tecla(Qt::Key_Insert);
  ASSERT_TRUE(p.en(cajas ? u"EdiCajas"_s : u"EdiGrupo"_s));
  p.escribir(g.nombre);
  p.elegir(u"lstAcceso"_s, u"TCP/IP"_s);
  p.poner(u"txTelf"_s, g.acceso);
  ASSERT_TRUE(p.ir(cajas ? u"cja"_s : u"bza"_s));
  for (const QString& modelo : g.modelos) {
    p.tecla(Qt::Key_Insert);
    if (!cajas) p.enMenu(modelo);
    p.tecla(Qt::Key_Right);
  }
  if (g.tipo == Tipo::Ebony) p.poner(u"txAddr"_s, QString::number(g.direcciones.front()));
  if (g.tipo == Tipo::Balanzas) p.foto(u"grupo"_s);
  if (!cajas) hojasDe(g);
  ASSERT_FALSE(HasFatalFailure());
  guardar(g, codigo);
}

// The operators of the group; the keyboard, the labels and the header of its first scale.
void PrimerDia::hojasDe(const UnGrupo& g) {
  p.luego([&] {
    for (const QString& codigo : {u"1"_s, u"2"_s}) {
      p.escribir(codigo);
      p.tecla(Qt::Key_Return);
    }
    p.pulsar(u"Acepto"_s);
  });
  p.pulsar(u"MnOps"_s);
  const auto hoja = [&](const QString& entrada, const std::function<void()>& hacer) {
    ASSERT_TRUE(p.ir(u"bza"_s));
    p.tecla(Qt::Key_Home);
    p.luego(hacer);
    p.tecla(Qt::Key_Return);
    p.enMenu(entrada);
  };
  hoja(u"Razón social"_s, [&] {
    for (const QString& linea : kLineas) {
      p.escribir(linea);
      p.tecla(Qt::Key_Down);
    }
    if (g.tipo == Tipo::Balanzas) p.foto(u"cabecera"_s);
    p.pulsar(u"Guardar"_s);
  });
  hoja(u"Teclado"_s, [&] {
    for (const UnArticulo& a : kArticulos) {
      p.escribir(QString::number(a.codigo));
      p.tecla(Qt::Key_Return);
    }
    if (g.tipo == Tipo::Balanzas) p.foto(u"teclado"_s);
    p.pulsar(u"Acepto"_s);
  });
  if (g.tipo == Tipo::Ebony) return;  // it has no labels
  hoja(u"Cassettes"_s, [&] {
    p.elegir(u"ListaEtq"_s, u"PESO"_s);
    p.pulsar(u"Guardar"_s);
  });
}

// Everything goes to the machines on saving, and the window of communications closes by itself.
void PrimerDia::guardar(const UnGrupo& g, int codigo) {
  const bool cajas = g.tipo == Tipo::Registradora;
  p.luego([&] { p.pulsar(u"Si"_s); });
  p.tecla(Qt::Key_S, Qt::ControlModifier);
  ASSERT_EQ(leer("SELECT count(*) FROM GRUPOS WHERE CODGPO=" + QByteArray::number(codigo)), "1");
  EXPECT_TRUE(p.hasta([&] { return !escritorio->ventanas().cargada(u"gestcomm"_s); }));
  EXPECT_TRUE(motor().tareas().empty());
  ASSERT_TRUE(p.en(u"BrowGrupos"_s));
  p.tecla(Qt::Key_F4);
  ASSERT_TRUE(p.en(cajas ? u"EdiCajas"_s : u"EdiGrupo"_s));
  int iguales = 0;
  for (const QLabel* l : Persona::activa()->findChildren<QLabel*>())
    if (l->text().contains(u"igual que aquí")) ++iguales;
  if (g.tipo == Tipo::Balanzas) p.foto(u"enviado"_s);
  EXPECT_EQ(iguales, cajas ? 0 : g.tipo == Tipo::Ebony ? 2 : 5) << g.nombre.toStdString();
  p.tecla(Qt::Key_Escape);
  ASSERT_TRUE(p.en(u"BrowGrupos"_s));
}

// --- what the machines hold

void PrimerDia::comprobarMaquinas() {
  for (size_t n = 0; n < kGrupos.size(); ++n) {
    const UnGrupo& g = kGrupos[n];
    const dias::Grupo suyo{static_cast<int>(n) + 1, 1, 0, g.tipo};
    const dias::Esperado debe = dias::esperado(*base, suyo, reloj.ahora().dias());
    for (const simulador::Maquina* m : suyas[n]) {
      EXPECT_EQ(m->memoria().catalogo.size(), kArticulos.size()) << g.nombre.toStdString();
      for (const UnArticulo& a : kArticulos) {
        const auto it = m->memoria().catalogo.find(a.codigo);
        ASSERT_NE(it, m->memoria().catalogo.end()) << g.nombre.toStdString() << ' ' << a.codigo;
        EXPECT_EQ(it->second.nombre, a.nombre);
        EXPECT_EQ(it->second.precio, a.centimos);
        const auto tiene = dias::leida(suyo, it->second.ficha);
        ASSERT_TRUE(tiene && debe.caben.contains(a.codigo));
        EXPECT_EQ(dias::diferencias(debe.caben.at(a.codigo), *tiene), QString());
      }
      if (g.tipo != Tipo::Registradora) comprobarConfiguracion(g, *m);
    }
  }
}

// The frames of the machine's own protocol, composed here from what was typed.
void PrimerDia::comprobarConfiguracion(const UnGrupo& g, const simulador::Maquina& m) {
  const auto oyo = [&](int codigo, const QByteArray& que) {
    QByteArrayList hay;
    for (const simulador::Peticion& x : m.oidas())
      if (x.codigo == codigo) hay << x.datos;
    EXPECT_TRUE(std::ranges::any_of(hay, [&](const auto& x) { return x.contains(que); }))
        << g.nombre.toStdString() << ": " << que.toStdString() << " no está en las tramas "
        << codigo << ": " << hay.mid(0, 20).join('|').toStdString();
  };
  const bool ebony = g.tipo == Tipo::Ebony;
  int n = 0;
  for (const QString& linea : kLineas) {
    ++n;
    ebony ? oyo(33, linea.toLatin1())
          : oyo(300,
                QByteArray::number(n) + char(g.tipo == Tipo::Birch ? 15 : 14) + linea.toLatin1());
  }
  n = 0;
  for (const UnArticulo& a : kArticulos) {
    ++n;
    ebony ? oyo(38, ceros(n, 3) + "00" + ceros(a.codigo, 5))
          : oyo(0, ceros(n, 3) + ceros(a.codigo, 7));
  }
  if (ebony) return;
  n = 0;
  for (const QString& o : kOperadores) oyo(30, ceros(++n, 2) + o.toLatin1().leftJustified(16));
  const QByteArray formato = QByteArray::fromStdString(leer("SELECT CAMPOS FROM ETIQUETAS"));
  for (const QByteArray& linea : formato.simplified().split(' ')) oyo(400, linea);
}

// --- the day and the night

// From ten in the morning until closing time.
void PrimerDia::vender(int dia) {
  const auto alas = [&](QTime hora) {
    const double faltan = Fecha::de(kHoy.addDays(dia - 1), hora).dias() - reloj.ahora().dias();
    reloj.avanzar(qRound64(faltan * 86'400'000));
  };
  alas(QTime(10, 0));
  for (size_t n = 0; n < suyas.size(); ++n)
    for (simulador::Maquina* m : suyas[n])
      for (const UnArticulo& a : kArticulos) {
        reloj.avanzar(60'000);
        simulador::Venta v;
        v.articulo = a.codigo;
        v.operador = dia;
        v.departamento = a.depto;
        v.peso = kGrupos[n].tipo == Tipo::Registradora ? 0 : 1000;
        v.importe = a.centimos + static_cast<qint64>(n) * 7 + dia;
        m->sell(v);
        vendido[{static_cast<int>(n) + 1, a.codigo}] += v.importe;
      }
  alas(QTime(21, 30));
}

// An entry of a menu of the window of communications, for all groups.
void PrimerDia::enGrupos(Qt::Key menu, const QString& entrada) {
  p.tecla(menu, Qt::AltModifier);
  p.luego([this, menu] {
    if (menu != Qt::Key_R) p.foto(u"cero"_s);
    p.pulsar(u"Todas"_s);
    if (menu == Qt::Key_T) p.luego([this] { p.pulsar(u"Acepto"_s); });
    p.pulsar(u"Acepto"_s);
  });
  p.enMenu(entrada);
}

void PrimerDia::ponerACero() {
  enGrupos(Qt::Key_T, u"Puesta a CERO"_s);
  EXPECT_TRUE(p.hasta([&] { return motor().tareas().empty(); }));
  for (const auto& grupo : suyas)
    for (const simulador::Maquina* m : grupo)
      EXPECT_TRUE(!m->memoria().puestas().empty() && m->memoria().contadores().vacios());
}

// Before the first sale, so that the first period begins today.
void PrimerDia::abrir() {
  desdeLaPrincipal(u"EnviarRecibir"_s, u"gestcomm"_s);
  ponerACero();
  p.tecla(Qt::Key_Escape);
}

// By hand, at the end of the day.
void PrimerDia::recoger() {
  desdeLaPrincipal(u"EnviarRecibir"_s, u"gestcomm"_s);
  for (const QString& que :
       {u"Totales por artículos"_s, u"Gran total"_s, u"Totales por operadores"_s,
        u"Totales por departamentos"_s, u"Totales por franja horaria"_s})
    enGrupos(Qt::Key_R, que);
  EXPECT_TRUE(p.hasta([&] { return motor().tareas().empty(); }));
  p.mirar();
  p.foto(u"recogido"_s);
  p.tecla(Qt::Key_S, Qt::AltModifier);
  p.enMenu(u"Cerrar y memorizar"_s);
  ASSERT_TRUE(p.en(u"CerrSes"_s));
  p.poner(u"Descrip"_s, u"Primer día"_s);
  p.foto(u"memorizar"_s);
  p.pulsar(u"Guardar"_s);
  p.pulsar(u"Cancelar"_s);
  ASSERT_TRUE(p.en(u"gestcomm"_s));
  ponerACero();
  p.tecla(Qt::Key_Escape);
}

// The process becomes an entry of the main window, and is run from there.
void PrimerDia::noche() {
  QFile f(carpeta.filePath(u"NOCHE.AUT"_s));
  ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(kNoche) == kNoche.size());
  f.close();
  ASSERT_TRUE(p.en(u"MainTarvo"_s));
  ASSERT_TRUE(p.ir(u"Personalizado"_s));
  p.alDesplegarse([this] {
    p.luego([this] {
      p.escribir(u"La noche"_s);
      p.pulsar(u"Acepto"_s);
    });
    p.enMenu(u"Añadir elemento"_s);
  });
  p.tecla(Qt::Key_Space);
  p.luego([this] {
    p.luego([this] { p.pulsar(u"Acepto"_s); });
    p.pulsar(u"Acepto"_s);
  });
  p.pulsar(u"Personalizado"_s);
  ASSERT_TRUE(p.en(u"Automat"_s));
  const auto acabada = [&] { return aplicacion->automat().fase() == automation::kAcabado; };
  EXPECT_TRUE(p.hasta(acabada)) << aplicacion->automat().fase();
  EXPECT_EQ(static_cast<int>(aplicacion->automat().resultado()), 0);
  p.foto(u"noche"_s);  // a second later it closes by itself
}

// Each sale is in the periods of days once, in its group and article; all sums foot.
void PrimerDia::comprobarLibros(int dias) {
  EXPECT_EQ(leer("SELECT count(*), min(TIPO), max(TIPO) FROM COLUMNA"),
            std::to_string(dias) + " 1 1");
  std::map<std::pair<int, int>, qint64> hay;
  base->filas(
      "SELECT GRUPO, CODI, sum(IMP) FROM TOTPLU WHERE LINK > 0 GROUP BY 1, 2 HAVING sum(IMP) <> 0",
      [&](auto& f) {
        hay[{static_cast<int>(f.entero(0)), static_cast<int>(f.entero(1))}] = f.entero(2);
      });
  EXPECT_EQ(hay, vendido);
  qint64 todo = 0;
  for (const auto& [clave, importe] : vendido) todo += importe;
  EXPECT_EQ(base->uno("SELECT sum(IMP) FROM TOTGRT WHERE LINK > 0"), todo);
  for (qint64 link = 1; link <= dias; ++link) {
    const auto cuadre = totals::informeCuadre(*fondo->db, fondo->ajustes, textos, link);
    ASSERT_TRUE(cuadre);
    EXPECT_TRUE(cuadre->cuadra) << cuadre->texto.toStdString();
  }
  for (const auto& grupo : suyas)
    for (const simulador::Maquina* m : grupo) EXPECT_TRUE(m->memoria().contadores().vacios());
}

TEST_F(PrimerDia, DeLaCarpetaVaciaALosLibros) {
  for (const UnGrupo& g : kGrupos) {
    auto& lista = suyas.emplace_back();
    for (const int direccion : g.direcciones) {
      simulador::OpcionesMaquina como;
      como.tipo = g.tipo;
      como.grupo = static_cast<int>(suyas.size());
      como.direccion = direccion;
      como.balanzas = {0, 1};
      lista.push_back(&maquina(g.acceso, std::move(como)));
    }
  }
  // A day that went wrong makes no sense of the rest.
  const auto pasos = {&PrimerDia::catalogo, &PrimerDia::operadores, &PrimerDia::canales,
                      &PrimerDia::etiqueta, &PrimerDia::grupos,     &PrimerDia::comprobarMaquinas,
                      &PrimerDia::abrir};
  for (const auto paso : pasos) {
    (this->*paso)();
    ASSERT_FALSE(HasFailure());
  }
  vender(1);
  recoger();
  comprobarLibros(1);
  ASSERT_FALSE(HasFailure());
  vender(2);
  noche();
  comprobarLibros(2);
  ASSERT_TRUE(p.en(u"MainTarvo"_s));
  p.foto(u"manana"_s);
}

}  // namespace tarvo::primerdia
