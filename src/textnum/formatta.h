#pragma once

#include <string>
#include <string_view>

#include "base/piattaforma.h"

namespace tk07 {

// General text of a number: up to 15 significant digits, a point, no leading zero (".5"), no
// trailing zeros; plain digits from 1E-5 up to below 1E+15, else "1.5E+20". Zero is "0".
std::string TestoNumero(double x);
// The same with the leading blank of a number that is not negative.
std::string TestoGenerale(double x);

// `valore` times `fattore` as text, by the commands in `comando`:
//   (cu_x_y) unit conversion        (cs_nn) significant digits    (dv_nn) decimals, corrected by
//   the scale of the factor             (cd_nn) decimals              (zr_c)  fill of the decimals
//   (fd_nn) field, right-aligned    (fs_nn) field, left-aligned   (np_1)  no trailing point
//   (sc_text) text behind the number
// Rounding is half to even on the exact binary value. A bad argument shows a box and gives the
// empty text; a number too wide for its field is a run of asterisks. Without (cd_ a field that
// drops decimals fills up with NUL characters; who writes a text file puts blanks there.
std::string Formatta(double valore, std::string_view comando, double fattore, const Piattaforma& p);

// 1-based place of the first "." in `testo`, which gets one at its end when it has none; -1 and no
// change when the text holds an exponent.
int PosizionePunto(std::string& testo);
// 1-based place of the last occurrence of `cerca`, 0 if none.
int UltimaPosizione(std::string_view testo, std::string_view cerca);
// x to n significant digits, n >= 1.
double CifreSignificative(double x, int n);

enum class Separatore { no, barra };
enum class Allinea { sinistra, destra };

// One column of a report, `larghezza` characters wide (2..99 for numbers), with "|" behind it where
// asked. A floating value keeps the point of a whole number ("200."), an integer has none.
void AggiungiCampo(std::string& riga, double valore, int larghezza, Separatore sep, Allinea al);
void AggiungiCampo(std::string& riga, int valore, int larghezza, Separatore sep, Allinea al);
void AggiungiCampo(std::string& riga, std::string_view testo, int larghezza, Separatore sep,
                   Allinea al);
template <class T>
std::string CampoTesto(const T& valore, int larghezza, Separatore sep, Allinea al) {
    std::string r;
    AggiungiCampo(r, valore, larghezza, sep, al);
    return r;
}

}  // namespace tk07
