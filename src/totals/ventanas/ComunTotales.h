// What the windows of totals share: lists of groups and sections to choose from, names of the kinds
// of total, and the words for what some periods hold.
#pragma once

#include <QComboBox>

#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/marco/Ventanas.h"
#include "totals/periodos/ConsultaFilas.h"

namespace tarvo::totals {

inline constexpr int kTodos = -1;  // the data of the first entry of such a list

// Codes and names, with "<<TODOS>>" in front where `textoTodos` isn't 0.
Resultado<> llenarLista(QComboBox& lista, ventanas::Contexto& c, const Nombres::Lista& nombres,
                        int cifras, int textoTodos = 0);
// What is chosen; nothing for the first entry.
std::optional<int> elegidoEn(const QComboBox& lista);
void elegirEn(QComboBox& lista, const QVariant& dato);

// The kinds of period; the kinds of total that this language has.
ventanas::Opciones tiposDePeriodo();
ventanas::Opciones clasesDeTotal(const ventanas::Contexto& c);
QString nombreClase(const Textos& t, TipoTotal clase);
// "12.345,67 Euros" in the preferred currency.
QString conMoneda(const ventanas::Contexto& c, qint64 importe, int moneda);
QString conMoneda(const ventanas::Contexto& c, qint64 importe);
// "2 grupos, 345 totales, 12.345,67 Euros".
QString textoResumen(const ventanas::Ventana& v, const Resumen& r);
int cifrasCodigo(TipoTotal clase);  // digits with which its codes are shown

// Where the row of a group and code of a period came from, in lines.
Resultado<QString> textoProcedencia(ventanas::Ventana& v, Periodos& periodos, qint64 link,
                                    int grupo, TipoTotal clase, qint64 codigo);

}  // namespace tarvo::totals
