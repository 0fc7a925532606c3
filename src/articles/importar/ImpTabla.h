// Articles from a table: first a dry run that shows what would change, then all of it in slices
// through the catalogue, as one undoable batch. Each change is due to the machines and enters the
// price history.
#pragma once

#include "articles/Lotes.h"
#include "articles/importar/FilaArticulo.h"
#include "articles/importar/Lineas.h"
#include "articles/importar/RepartoCodigos.h"

namespace tarvo::importar {

enum class Que { Nuevo, Cambia, Igual, Rechazada };

struct Cambio {
  Campo campo;
  QString antes, ahora;  // as displayed; `antes` is empty for a new article
};

struct Propuesta {
  int linea = 0;
  Que que = Que::Rechazada;
  articles::ClaveArticulo clave;
  QString nombre;
  std::vector<Cambio> cambios;
  QString motivo;      // of a refusal
  QStringList avisos;  // of odd prices, a sentence each
};

// The plan for a table, from its headings and the decimal sign of most of its numbers.
Plan planDe(const Tabla& tabla, const Textos& textos);
Signo averiguarSigno(const Tabla& tabla, const Plan& plan);

class ImpTabla {
 public:
  static constexpr int kFilasPorPaso = 200;  // of the dry run
  static constexpr int kEscritasPorPaso = 50;

  // REQUIRES that all references outlive it, and a plan with a column for Campo::Codigo.
  static Resultado<std::unique_ptr<ImpTabla>> crear(articles::Catalogo& catalogo,
                                                    const Ajustes& ajustes, const Tabla& tabla,
                                                    const Plan& plan);
  ~ImpTabla();

  // The next rows of the dry run: true while there are more. Writes nothing.
  Resultado<bool> ensayar();
  const std::vector<Propuesta>& propuestas() const { return propuestas_; }
  int cuantas(Que que) const { return cuantas_[static_cast<size_t>(que)]; }
  int dudosas() const { return dudosas_; }  // with odd prices; not those refused
  int ensayadas() const { return static_cast<int>(propuestas_.size()); }
  int filas() const;

  struct Hecho {
    int nuevos = 0, cambiados = 0;
    int redondeados = 0;  // amounts of theirs with more decimals than the currency
    int dudosos = 0;      // of them with odd prices
    std::vector<LineaMala> malas;
  };
  // Imports the next rows that passed the dry run, onto the articles as they are now. Each step is
  // a transaction of its own, between which others may write. True while there are more. Left
  // before acabar(), or failed, it is half done: its batch must be undone. An error names the line.
  // REQUIRES the whole dry run.
  Resultado<bool> aplicar();
  Resultado<> acabar();  // after the last step
  const Hecho& hecho() const { return hecho_; }
  qint64 lote() const { return lote_; }  // 0 when nothing was written
  int aplicadas() const { return aplicadas_; }

 private:
  struct Pase;
  ImpTabla(articles::Catalogo& catalogo, const Ajustes& ajustes, const Tabla& tabla, Plan plan,
           Departamentos deptos);
  Resultado<std::unique_ptr<Pase>> nuevoPase();
  Resultado<Propuesta> proponer(Pase& pase, int fila);
  // The row as an article, or the reason for its refusal.
  using Leido = std::expected<articles::Articulo, QString>;
  Leido leer(int fila, articles::ClaveArticulo clave,
             const std::optional<articles::Articulo>& antes) const;
  // Why it can't have its bar code, if already known.
  Resultado<std::optional<QString>> codigoAjeno(int fila,
                                                const std::optional<articles::Articulo>& antes,
                                                const articles::Articulo& ahora);
  void negarCodigos();
  std::vector<Cambio> comparar(const std::optional<articles::Articulo>& antes,
                               const articles::Articulo& ahora) const;
  QStringList preciosRaros(const std::optional<articles::Articulo>& antes,
                           const articles::Articulo& ahora) const;
  Resultado<> aplicarUna(int cual);
  Resultado<> aplicarJuntas();
  Resultado<bool> juntasComoDebian();
  Resultado<> guardar(const std::optional<articles::Articulo>& antes,
                      articles::ClaveArticulo clave);
  void rechazar(int cual, const QString& motivo);
  Resultado<> escribir(const std::optional<articles::Articulo>& antes,
                       const articles::Articulo& ahora);

  dao::Database& db_;
  articles::Catalogo& catalogo_;
  articles::Lotes lotes_;
  const Ajustes& ajustes_;
  const Tabla& tabla_;
  const Plan plan_;
  const Departamentos deptos_;
  const Filas lector_;
  std::unique_ptr<Pase> ensayo_;
  RepartoCodigos reparto_;  // its rows are those of propuestas_
  std::vector<Propuesta> propuestas_;
  std::array<int, 4> cuantas_{};
  int dudosas_ = 0;
  Hecho hecho_;
  qint64 lote_ = 0;
  int aplicadas_ = 0;
  std::set<int> juntas_;
};

}  // namespace tarvo::importar
