#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tk07 {

// Texts in memory are UTF-8. Case folding is that of ASCII and of the Latin letters with accents
// (U+00C0..U+00FE), which covers every name and key of the suite.

std::string Taglia(std::string_view testo);        // without blanks and tabs at both ends
std::string TagliaDestra(std::string_view testo);  // without blanks and tabs at the end
std::string Minuscolo(std::string_view testo);
std::string Maiuscolo(std::string_view testo);
bool Contiene(std::string_view testo, std::string_view cerca);
bool FinisceCon(std::string_view testo, std::string_view fine);

// Number of characters (code points), and the first n characters.
std::size_t NumeroCaratteri(std::string_view testo);
std::string PrimiCaratteri(std::string_view testo, std::size_t n);

// Takes the first field off `riga`: tabs count as blanks, the field and the rest are trimmed, and
// `riga` is shortened by what was taken. An empty line gives an empty field.
std::string EstraiCampo(std::string& riga, char separatore = ' ');
// Number of fields of `riga` separated by blanks or tabs; counting stops at 50.
int ContaCampi(std::string_view riga);
// Replaces every occurrence of `cerca`, with or without regard to case.
enum class Maiuscole { distinte, indifferenti };
std::string SostituisciTesto(std::string_view testo, std::string_view cerca, std::string_view nuovo,
                             Maiuscole maiuscole = Maiuscole::distinte);
std::vector<std::string> Dividi(std::string_view testo, char separatore);
// The text on one line: carriage return to blank, line feed removed.
std::string TogliCR(std::string_view testo);

// Lenient reading: the longest leading number of the text, blanks before it passed over, the point
// as decimal separator whatever the locale; 0 when there is none. "inf" and "nan" are no numbers; a
// number beyond the range of a double is a fatal fault.
double ValoreIniziale(std::string_view testo);
// The same, none beyond the range of a double.
std::optional<double> NumeroIniziale(std::string_view testo);
// Strict reading: blanks around, a sign, digits with a point, an exponent; nothing else.
std::optional<double> ValoreStretto(std::string_view testo);
// What a message says of a number beyond that range.
std::string TroppoGrande(std::string_view testo);
// The leading number as a 16-bit whole number, half to even; none when it does not fit, with the
// reason in `perche`. As a fatal fault, `dove` is told with it.
std::optional<short> CortoIniziale(std::string_view testo, std::string& perche);
short InteroIniziale(std::string_view testo, std::string_view dove = {});

// Shortest plain text that reads back to the same 64-bit value ("0.5", "1e+20" only where the plain
// form would be longer than 25 characters).
std::string TestoReale(double x);
std::string TestoIntero(long x);

}  // namespace tk07
