// The timetable: when entries come due, and what happens to them.
#include "automation/Cronos.h"

#include <QFile>

#include "automation/TiendaDeProcesos.h"
#include "core/ajustes/Ficheros.h"

namespace tarvo::automation {
namespace {

using namespace Qt::StringLiterals;

constexpr QStringView kSiempre = u"Sí,Sí,Sí,Sí,Sí,Sí,Sí";

class ConCronos : public testing::Test {
 protected:
  ConCronos()
      : p_(tienda_.programa()), c_(p_->automat(), p_->lenguaje(), p_->ajustes(), p_->reloj()) {
    fichero(u"BIEN.AUT"_s, u"N:a\r\n"_s);
    fichero(u"mal.aut"_s, u"S:CERRAR,x,Sí,Sí\r\n"_s);
    fichero(u"PREGUNTA.AUT"_s, u"N:%1,Grupo\r\n"_s);
    fichero(u"LARGO.AUT"_s,
            u"N:a\r\nN:%2,Cuánto\r\n"_s);  // lasts until the answer comes
    tienda_.respuestas.numeros[u"%2"_s] = 1;
    fichero(u"VACIO.AUT"_s, u""_s);
    fichero(u"ROTO.AUT"_s, u"T:NADA,1\r\n"_s);
    c_.alAvisar = [this](const QString& t) { avisos_ += t; };
  }
  void fichero(const QString& nombre, const QString& texto) {
    ASSERT_TRUE(ficheros::escribirEntero(tienda_.dir.filePath(nombre), ficheros::codificar(texto)));
  }
  void horario(const QStringList& lineas) {
    fichero(u"TIENDA.CRO"_s, lineas.join(u"\r\n"_s));
    const auto r = c_.ActivarCron(u"tienda"_s);
    ASSERT_TRUE(r) << r.error().texto.toStdString();
  }
  static QString linea(const QString& hora, const QString& proceso, QStringView dias = kSiempre) {
    return hora + u';' + dias.toString() + u';' + proceso;
  }
  void pasar(double minutos) { tienda_.reloj.avanzar(static_cast<qint64>(minutos * 60000)); }
  int exitos(size_t i = 0) const { return c_.entradas()[i].exitos; }
  int fallos(size_t i = 0) const { return c_.entradas()[i].fallos; }
  EstadoEntrada estado(size_t i) const { return c_.entradas()[i].estado; }

  TiendaDeProcesos tienda_;  // Wednesday 4 March 2026, 22:00
  std::unique_ptr<Programa> p_;
  Cronos c_;
  QStringList avisos_;
};

TEST_F(ConCronos, CuentaLoQueAcaba) {
  horario({linea(u"22:05:00"_s, u"BIEN"_s), linea(u"22:10:00"_s, u"MAL"_s),
           linea(u"22:15:00"_s, u"pregunta.aut"_s), linea(u"22:20:00"_s, u"VACIO"_s)});
  EXPECT_EQ(c_.siguiente(), 0);
  pasar(7);
  EXPECT_EQ(c_.siguiente(), 1);
  pasar(20);
  EXPECT_EQ(exitos(0), 1);
  EXPECT_EQ(fallos(1), 1);
  EXPECT_EQ(fallos(2), 1);  // aborted for want of an answer
  EXPECT_EQ(exitos(3), 1);
  EXPECT_EQ(c_.siguiente(), 0);
  const QString traza = tienda_.texto(u"TIENDA.TZC"_s);
  EXPECT_TRUE(traza.contains(u"MAL:        La sesión está ya cerrada")) << traza.toStdString();
  pasar(24 * 60);
  EXPECT_EQ(exitos(0), 2);
}

TEST_F(ConCronos, ElProximoInicioMiraLosDias) {
  horario({linea(u"21:00:00"_s, u"BIEN"_s, u"No,No,No,No,Sí,No,No"),
           linea(u"22:05:00"_s, u"BIEN"_s, u"No,No,Sí,No,No,No,No"),
           linea(u"22:01:00"_s, u"ROTO"_s)});
  EXPECT_EQ(c_.proximoInicio()->cuando, Fecha::de(QDate(2026, 3, 4), QTime(22, 5)));
  pasar(10);
  EXPECT_EQ(c_.proximoInicio()->entrada, 0);
  EXPECT_EQ(c_.proximoInicio()->cuando, Fecha::de(QDate(2026, 3, 6), QTime(21, 0)));
  EXPECT_FALSE(c_.adelantar(2)) << "unusable";
  EXPECT_TRUE(c_.adelantar(0));
  pasar(1);
  EXPECT_EQ(exitos(0), 1);
  c_.ponerActivo(false);
  EXPECT_FALSE(c_.proximoInicio());
}

TEST_F(ConCronos, LosDiasEmpiezanEnLunes) {
  horario({linea(u"22:05:00"_s, u"BIEN"_s, u"No,No,Sí,No,No,No,No"),
           linea(u"22:06:00"_s, u"BIEN"_s, u"Sí,Sí,No,Sí,Sí,Sí,Sí"),
           linea(u"22:07:00"_s, u"BIEN"_s, u"No,No,No,No,No,No,No")});
  pasar(60);
  EXPECT_EQ(exitos(0), 1);
  EXPECT_EQ(exitos(1), 0);
  pasar(7 * 24 * 60);
  EXPECT_EQ(exitos(0), 2);
  EXPECT_EQ(exitos(1), 6);
  EXPECT_EQ(exitos(2), 0);
}

TEST_F(ConCronos, VariasALaVezEnElOrdenDelFichero) {
  horario({linea(u"22:30:00"_s, u"BIEN"_s), linea(u"22:05:00"_s, u"LARGO"_s),
           linea(u"22:05:00"_s, u"BIEN"_s)});
  tienda_.respuestas.mientras = [this] {
    pasar(5);
    EXPECT_EQ(estado(1), EstadoEntrada::Iniciada);
    EXPECT_EQ(estado(2), EstadoEntrada::Vencida);
    EXPECT_TRUE(c_.hayProcesoEnMarcha());
    pasar(30);
    EXPECT_EQ(estado(0),
              EstadoEntrada::Vencida);  // its hour came meanwhile; it waits, it isn't lost
  };
  pasar(100);
  EXPECT_EQ(tienda_.respuestas.preguntas, 1);
  for (const size_t i : {0u, 1u, 2u}) EXPECT_EQ(exitos(i), 1) << i;
}

// An hour that comes while a person runs a process is not lost.
TEST_F(ConCronos, EsperaALoQueCorreUnaPersona) {
  horario({linea(u"22:05:00"_s, u"BIEN"_s)});
  tienda_.respuestas.mientras = [this] {
    pasar(10);
    EXPECT_EQ(estado(0), EstadoEntrada::Vencida);
  };
  p_->correr(u"N:%2,Cuánto\r\n"_s);
  pasar(20);
  EXPECT_EQ(tienda_.respuestas.preguntas, 1);
  EXPECT_EQ(exitos(0), 1);
}

// Each case: how far the wall clock is moved after 1 and after 20 minutes, and how often the entry
// has run by the end.
struct CasoReloj {
  const char* nombre;
  const char16_t* hora;
  double saltoAntes, saltoDespues;  // hours
  double minutosAlFinal;
  int veces;
};
class ConReloj : public ConCronos, public testing::WithParamInterface<CasoReloj> {};

TEST_P(ConReloj, UnaVezPorHoraYDia) {
  const auto& caso = GetParam();
  horario({linea(QString::fromUtf16(caso.hora), u"BIEN"_s)});
  pasar(1);
  tienda_.reloj.saltarPared(caso.saltoAntes / 24);
  pasar(19);
  tienda_.reloj.saltarPared(caso.saltoDespues / 24);
  pasar(caso.minutosAlFinal);
  EXPECT_EQ(exitos(), caso.veces) << caso.nombre;
}

INSTANTIATE_TEST_SUITE_P(
    Saltos, ConReloj,
    testing::Values(CasoReloj{"sin saltos", u"22:05:00", 0, 0, 60, 1},
                    CasoReloj{"atrás una hora, ya ejecutada", u"22:05:00", 0, -1, 180, 1},
                    CasoReloj{"atrás un día: es otro día", u"22:05:00", 0, -24, 180, 1},
                    CasoReloj{"atrás un día, y llega su hora", u"22:05:00", 0, -24.5, 60, 2},
                    CasoReloj{"adelante sobre la hora", u"22:30:00", 1, 0, 10, 1},
                    CasoReloj{"adelante sobre la hora, y atrás", u"22:30:00", 1, -1, 120, 1},
                    CasoReloj{"adelante tres horas, hasta mañana", u"00:30:00", 2.9, 0, 10, 1},
                    CasoReloj{"adelante demasiado", u"22:30:00", 4, 0, 10, 0},
                    CasoReloj{"medianoche", u"00:00:00", 0, 0, 150, 1},
                    CasoReloj{"un segundo antes de medianoche", u"23:59:59", 0, 0, 150, 1},
                    CasoReloj{"la hora de la carga", u"22:00:00", 0, 0, 10, 1}),
    [](const auto& c) { return std::to_string(c.index); });

TEST_F(ConCronos, UnTicTardioNoPierdeLaHora) {
  horario({linea(u"22:05:00"_s, u"BIEN"_s)});
  tienda_.reloj.saltarPared(6 / 1440.0);  // the program was busy for six minutes
  pasar(1);
  EXPECT_EQ(exitos(), 1);
}

TEST_F(ConCronos, Inactivo) {
  horario({linea(u"22:05:00"_s, u"BIEN"_s), linea(u"22:30:00"_s, u"BIEN"_s)});
  c_.ponerActivo(false);
  EXPECT_EQ(c_.siguiente(), -1);
  pasar(10);
  c_.ponerActivo(true);
  EXPECT_EQ(c_.siguiente(), 1);
  pasar(60);
  EXPECT_EQ(exitos(0), 0);  // not made up
  EXPECT_EQ(exitos(1), 1);
}

TEST_F(ConCronos, UnProcesoInutilNoParaElHorario) {
  horario({linea(u"22:05:00"_s, u"ROTO"_s), linea(u"22:05:00"_s, u"FALTA"_s),
           linea(u"22:06:00"_s, u"BIEN"_s)});
  ASSERT_EQ(avisos_.size(), 2);
  EXPECT_TRUE(avisos_[0].contains(u"ROTO") && avisos_[0].contains(u"Línea 1"))
      << avisos_[0].toStdString();
  const QString traza = tienda_.texto(u"TIENDA.TZC"_s);
  EXPECT_TRUE(traza.startsWith(u"ROTO:   "_s) && traza.contains(avisos_[1])) << traza.toStdString();
  pasar(60);
  EXPECT_EQ(estado(0), EstadoEntrada::Inutil);
  EXPECT_EQ(exitos(0) + fallos(0) + exitos(1) + fallos(1), 0);
  EXPECT_EQ(exitos(2), 1);
}

TEST_F(ConCronos, UnHorarioMaloDejaElQueHabia) {
  horario({linea(u"22:05:00"_s, u"BIEN"_s)});
  fichero(u"OTRO.CRO"_s, u"22:05:00;Sí;BIEN"_s);
  const auto r = c_.ActivarCron(u"OTRO"_s);
  ASSERT_FALSE(r);
  EXPECT_TRUE(r.error().texto.startsWith(u"Línea 1:"));
  EXPECT_FALSE(c_.ActivarCron(u"NOHAY"_s));
  pasar(10);
  EXPECT_EQ(exitos(), 1);
}

TEST_F(ConCronos, ElProcesoDelPropioFichero) {
  fichero(u"PROPIO.AUT"_s,
          u"22:05:00;%1;@\r\n@INICIO BATCH\r\nN:a\r\n@FINAL BATCH\r\nlo demás\r\n"_s.arg(kSiempre));
  ASSERT_TRUE(c_.ActivarCron(u"propio.aut"_s));
  EXPECT_EQ(c_.entradas()[0].proceso, u"PROPIO");
  pasar(10);
  EXPECT_EQ(exitos(), 1);
  EXPECT_TRUE(tienda_.texto(u"PROPIO.TZC"_s).contains(u"PROPIO: Ejecución finalizada: "));
}

TEST_F(ConCronos, CambiarDeHorarioConUnProcesoEnMarcha) {
  horario({linea(u"22:05:00"_s, u"LARGO"_s)});
  tienda_.respuestas.mientras = [this] {
    pasar(5);
    EXPECT_TRUE(c_.hayProcesoEnMarcha());
    horario({linea(u"22:20:00"_s, u"BIEN"_s)});
    pasar(15);
    EXPECT_EQ(estado(0), EstadoEntrada::Vencida);
  };
  pasar(85);
  EXPECT_EQ(tienda_.respuestas.preguntas, 1);
  EXPECT_EQ(exitos(), 1);
  c_.parar();
  pasar(48 * 60);
  EXPECT_EQ(exitos(), 1);
}

}  // namespace
}  // namespace tarvo::automation
