// A window like those of the program: a list of articles beside a live list.
#pragma once

#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_Muestra.h"
#include "ventanas/Mesa.h"

namespace tarvo::prueba {

inline const QString kTextosMuestra =
    u"9900\tPeriodos de totalización\n9901\t&Tipo:\n9902\t<<TODOS>>\n9903\tSólo los que ca&mbian\n"
    u"9904\tA&brir\n9905\t&Borrar\n9906\t&Sumar\n9910\tCódigo\n9911\tArtículo\n9912\tImporte\n"
    u"9913\tCantidad\n9914\tFecha\n9915\tMemorizado\n9916\tTarea\n9917\tEstado\n9918\tTipo\n"
    u"9919\tNo hay ningún periodo: memorice la sesión o cree uno con Nuevo.\n"_s;

// How a sample window is opened; each of its doors is one of these with a name.
struct ComoMuestra {
  int modo = 0;
  bool falla = false;
  QString cual = {};
  QString instancia() const { return cual; }
};
struct PuertaDeMuestra : ComoMuestra {
  static constexpr QStringView kNombre = u"Muestra";
};
struct PuertaDePrincipal : ComoMuestra {
  static constexpr QStringView kNombre = u"MainTarvo";
};

class Muestra : public ventanas::Ventana {
  Q_OBJECT
 public:
  Muestra(ventanas::Contexto& c, const QString& nombre, dao::Database& db);
  Resultado<> entrar(const ComoMuestra& como);
  bool QueryUnload() override {
    ++preguntas;
    return alDescargar ? alDescargar() : seNiega;
  }

  int modo = 0;
  bool seNiega = false;
  int preguntas = 0;
  std::function<bool()> alDescargar;
  std::function<void()> alEntrar;
  Ui::Muestra ui;

 private:
  dao::Database& db_;
};

// Articles 1 to n in the table ART; every fifth has price 0, and names have accents.
void llenarArticulos(Mesa& mesa, int cuantos);
std::vector<ventanas::Columna> columnasArticulos();

}  // namespace tarvo::prueba
