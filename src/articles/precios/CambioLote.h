// One change for many articles of a section: prices by a percentage and rounded, another
// department, another label format. First a preview of each, then all of it in slices, as one
// undoable batch.
#pragma once

#include <optional>
#include <span>
#include <variant>
#include <vector>

#include "articles/Tanda.h"

namespace tarvo::precios {

enum class Redondeo { MasProximo, HaciaArriba, HaciaAbajo };

// Prices by a percentage. Prices of 0 stay.
class SubePrecios {
 public:
  static constexpr int kMenor = -9'999, kMayor = 99'999;  // hundredths of a per cent
  // `paso`: the result is a multiple of it, 1 for the last decimal. `nivel` and `tarifa`: only
  // those, otherwise all. Nothing for a value out of range.
  static std::optional<SubePrecios> de(int centesimas, qint64 paso, Redondeo redondeo,
                                       std::optional<int> nivel, std::optional<int> tarifa);
  qint64 aplicar(qint64 precio) const;
  bool toca(int nivel, int tarifa) const;
  QString escribir() const;  // for escribirOrden()
  bool operator==(const SubePrecios&) const = default;

 private:
  SubePrecios() = default;
  int centesimas_ = 0;
  qint64 paso_ = 1;
  Redondeo redondeo_ = Redondeo::MasProximo;
  std::optional<int> nivel_, tarifa_;
};
struct PoneDepartamento {
  int departamento = 0;
  bool operator==(const PoneDepartamento&) const = default;
};
struct PoneFormato {
  int formato = 0;
  bool operator==(const PoneFormato&) const = default;
};
using OrdenLote = std::variant<SubePrecios, PoneDepartamento, PoneFormato>;
// As a batch keeps it; nothing for an invalid text.
QString escribirOrden(const OrdenLote& orden);
std::optional<OrdenLote> leerOrden(QStringView texto);

// The articles of a section: those of `codigos`, or if it is empty those of the filter.
struct SeleccionLote {
  int seccion = 0;
  std::vector<qint64> codigos = {};
  std::optional<int> departamento = {};
  QString nombre = {};  // any part of it
};

enum class Desenlace { Cambia, Igual, NoCabe, QuedaACero };
struct LineaLote {
  articles::ClaveArticulo clave;
  QString nombre;
  qint64 antes = 0, despues = 0;  // the first price that changes, the department, the format
  int cambian = 0;                // number of its values
  Desenlace desenlace = Desenlace::Igual;
};

class CambioLote {
 public:
  // REQUIRES that all references outlive it.
  CambioLote(articles::Catalogo& catalogo, articles::Lotes& lotes)
      : db_(catalogo.base()), catalogo_(catalogo), lotes_(lotes), textos_(catalogo.textos()) {}

  // Ordered by code, system articles left out. Restriccion for a department that the section
  // doesn't have, or a format outside 1 to 20.
  Resultado<std::vector<LineaLote>> previa(const SeleccionLote& seleccion, const OrdenLote& orden);
  // The same some articles at a time, so that a window stays responsive with a section of 100,000.
  class Previa {
   public:
    Resultado<bool> paso();                                        // true while there are more
    std::vector<LineaLote> tomar() { return std::move(lineas_); }  // after the last step

   private:
    friend class CambioLote;
    Previa(CambioLote& motor, SeleccionLote seleccion, OrdenLote orden);

    CambioLote& motor_;
    SeleccionLote seleccion_;
    OrdenLote orden_;
    QString sql_;
    std::vector<dao::Valor> parametros_;
    qint64 ultimo_ = articles::kPrimerCodigo - 1;
    std::vector<LineaLote> lineas_;
  };
  // REQUIRES that this object outlives the result.
  std::unique_ptr<Previa> mirar(const SeleccionLote& seleccion, const OrdenLote& orden) {
    return std::unique_ptr<Previa>(new Previa(*this, seleccion, orden));
  }

  struct Hecho {
    qint64 lote = 0;  // for undoing; 0 when nothing changed
    int cambiados = 0;
    int fuera = 0;  // unfit, at a price of 0, or gone
  };
  // The change under way. Its first steps note what is to be done; each of the others changes some
  // articles in a transaction of its own, between which others may write. Left before acabar(), or
  // failed, it is half done: its batch must be undone or resumed.
  class Marcha {
   public:
    // The next articles, as they are now: true while there are more.
    Resultado<bool> paso();
    Resultado<> acabar();  // after the last step
    const Hecho& hecho() const { return hecho_; }
    qint64 faltan() const { return static_cast<qint64>(claves_.size() - vistos_); }
    qint64 vistos() const { return static_cast<qint64>(vistos_); }

   private:
    friend class CambioLote;
    Marcha(CambioLote& motor, std::vector<articles::ClaveArticulo> claves, OrdenLote orden,
           const QString& ventana);
    Resultado<bool> apuntar();
    Resultado<> cambiar(std::span<const articles::ClaveArticulo> claves, Hecho& hecho);

    CambioLote& motor_;
    std::vector<articles::ClaveArticulo> claves_;
    OrdenLote orden_;
    QString ventana_;
    articles::Tanda tanda_;
    qint64 lote_ = 0;
    size_t apuntados_ = 0, vistos_ = 0;
    Hecho hecho_;
  };
  // Changes those of the articles that change and fit, all of one section. Errors of its steps:
  // those of previa(). REQUIRES that this object outlives the result.
  std::unique_ptr<Marcha> empezar(std::vector<articles::ClaveArticulo> claves,
                                  const OrdenLote& orden, const QString& ventana) {
    return std::unique_ptr<Marcha>(new Marcha(*this, std::move(claves), orden, ventana));
  }
  // The first article of a finished batch, and the first value of it that changed.
  struct Ejemplo {
    enum class Que { Precio, Departamento, Formato } que = Que::Precio;
    QString nombre;
    qint64 antes = 0, despues = 0;
  };
  // Nothing if the batch is forgotten, or changed none of these values.
  Resultado<std::optional<Ejemplo>> ejemplo(qint64 lote);
  // The rest of an interrupted batch, into the same batch. NoExiste when it can't be resumed.
  Resultado<std::unique_ptr<Marcha>> seguir(qint64 lote, const QString& ventana);

 private:
  Resultado<> comprobar(int seccion, const OrdenLote& orden);

  dao::Database& db_;
  articles::Catalogo& catalogo_;
  articles::Lotes& lotes_;
  const Textos& textos_;
};

}  // namespace tarvo::precios
