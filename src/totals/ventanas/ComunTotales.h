// Shared by the windows of totals: drop-down lists of groups and sections, names of the kinds of
// total, and texts that summarise periods.
#pragma once

#include <QComboBox>

#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/marco/Ventanas.h"
#include "totals/periodos/ConsultaFilas.h"

namespace tarvo::totals {

inline constexpr int kPrimerAno = 1980, kUltimoAno = 2099;  // that may be typed as a number

inline constexpr int kTodos = -1;  // the data of the first entry of such a list

// Fills the list with codes and names, preceded by the entry "<<TODOS>>" if `textoTodos` isn't 0.
Resultado<> llenarLista(QComboBox& lista, ventanas::Contexto& c, const Nombres::Lista& nombres,
                        int cifras, int textoTodos = 0);
// The code selected; nothing for the first entry.
std::optional<int> elegidoEn(const QComboBox& lista);
void elegirEn(QComboBox& lista, const QVariant& dato);

ventanas::Opciones mesesDelAno();  // by name; their values count from 1
// The kinds of period, and the kinds of total available in the current language.
ventanas::Opciones tiposDePeriodo();
ventanas::Opciones clasesDeTotal(const ventanas::Contexto& c);
QString nombreClase(const Textos& t, TipoTotal clase);
// An amount such as "12.345,67 Euros"; without `moneda`, in the preferred currency.
QString conMoneda(const ventanas::Contexto& c, qint64 importe, int moneda);
QString conMoneda(const ventanas::Contexto& c, qint64 importe);
// A summary such as "2 grupos, 345 totales, 12.345,67 Euros".
QString textoResumen(const ventanas::Ventana& v, const Resumen& r);
int cifrasCodigo(TipoTotal clase);  // digits in which its codes are shown

// The origin of the row of a group and code in a period, as several lines of text.
Resultado<QString> textoProcedencia(ventanas::Ventana& v, Periodos& periodos, qint64 link,
                                    int grupo, TipoTotal clase, qint64 codigo);

}  // namespace tarvo::totals
