#include "textnum/formatta.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

#include "base/aritmetica.h"
#include "base/errore.h"
#include "base/testo.h"
#include "textnum/conversioni.h"

namespace tk07 {

namespace {

// What a command string asks for, once its units and rounding have been dealt with.
struct Campo {
    std::optional<int> decimali;  // (cd_
    std::optional<int> destra;    // (fd_
    std::optional<int> sinistra;  // (fs_
    bool senzaPunto = false;      // (np_1)
    std::string_view riempi = " ";
};

// Decimal digits and exponent of |x| > 0: 0.d1d2d3... times 10^esp. `cifre` digits, exactly
// rounded.
struct Decimale {
    std::array<char, 128> cifre{};
    int quante = 0;
    int esp = 0;
};

Decimale Scomponi(double x, int cifre) {
    Decimale d;
    std::array<char, 160> buf{};
    const double a = std::fabs(x);
    auto r = cifre > 0 ? std::to_chars(buf.data(), buf.data() + buf.size(), a,
                                       std::chars_format::scientific, cifre - 1)
                       : std::to_chars(buf.data(), buf.data() + buf.size(), a,
                                       std::chars_format::scientific);
    const char* e = std::find(buf.data(), r.ptr, 'e');
    for (const char* c = buf.data(); c != e; ++c) {
        if (*c != '.') d.cifre[static_cast<std::size_t>(d.quante++)] = *c;
    }
    int esp = 0;
    const char* da = e + 1;
    if (*da == '+') ++da;
    std::from_chars(da, r.ptr, esp);
    d.esp = esp + 1;
    return d;
}

constexpr int kDecimaliPiani = 6;
constexpr std::size_t kTestoPiano = 24;  // sign, 8 + 6 digits, point

// The text of a plain number: below 10^8, not below 10^-4 unless 0, and the double nearest to a
// decimal of 6 places. `testo` takes what TestoNumero tells; the length comes back, 0 for any other
// number. Two decimals of up to 15 digits never share their nearest double: when the quotient gives
// x back, its digits are those of the general way.
std::size_t TestoPiano(double x, char* testo) {
    constexpr double kScala = 1e6;
    if (x == 0.0) {
        *testo = '0';
        return 1;
    }
    const double a = std::fabs(x);
    if (!(a >= 1e-4 && a < 1e8)) return 0;
    auto m = static_cast<std::int64_t>(a * kScala + 0.5);
    if (static_cast<double>(m) / kScala != a) return 0;
    std::array<char, kTestoPiano> cifre;  // backwards
    std::size_t n = 0;
    int decimali = kDecimaliPiani;
    for (; decimali > 0 && m % 10 == 0; --decimali) m /= 10;
    for (int k = 0; k < decimali; ++k, m /= 10) cifre[n++] = static_cast<char>('0' + m % 10);
    if (decimali > 0) cifre[n++] = '.';
    for (; m > 0; m /= 10) cifre[n++] = static_cast<char>('0' + m % 10);
    if (x < 0.0) cifre[n++] = '-';
    std::reverse_copy(cifre.data(), cifre.data() + n, testo);
    return n;
}

// |x| as digits with a point, rounded to `decimali`: no leading zero, no trailing zeros, a point
// only with `punto`. The conventional number mask with optional digit places.
std::string Maschera(double x, int decimali, bool punto) {
    std::array<char, 512> buf{};
    const auto r = std::to_chars(buf.data(), buf.data() + buf.size(), std::fabs(x),
                                 std::chars_format::fixed, std::max(decimali, 0));
    std::string t(buf.data(), r.ptr);
    if (decimali <= 0) t += '.';
    while (t.back() == '0') t.pop_back();
    if (t.front() == '0') t.erase(0, 1);
    const bool nullo = t == ".";
    if (!punto && t.back() == '.') t.pop_back();
    if (x < 0.0 && !nullo) t.insert(0, "-");
    return t;
}

// Scientific mask of n digit places, a point, and the exponent with its sign only when negative.
std::string MascheraScientifica(double x, int n) {
    const Decimale d = Scomponi(x, n);
    std::string t = x < 0.0 ? "-" : "";
    t.append(d.cifre.data(), static_cast<std::size_t>(d.quante));
    t += ".E";
    t += std::to_string(x == 0.0 ? 0 : d.esp - n);
    return t;
}

constexpr std::string_view kNul{"\0", 1};

void Ripeti(std::string& s, std::string_view c, int volte) {
    for (int k = 0; k < volte; ++k) s.append(c);
}

int Lunghezza(const std::string& s) { return static_cast<int>(NumeroCaratteri(s)); }

// Brings `s` (the text of x, with its point, or in exponent form) to w characters. False when only
// asterisks are left.
bool InCampo(std::string& s, double x, int w, std::string_view riempi) {
    while (s.find('E') == std::string::npos) {
        const int lungo = Lunghezza(s);
        if (lungo < w) s.insert(0, static_cast<std::size_t>(w - lungo), ' ');
        if (lungo <= w) return true;
        const int p = PosizionePunto(s);
        const int i = p - 1;  // characters before the point, the minus sign among them
        if (i > w) {
            if (w < 4) return false;
            s = MascheraScientifica(x, w - 3);
            break;
        }
        const int decimali = i == w ? 0 : w - p;
        std::string t = Maschera(x, decimali, i < w);
        // The rounding has added a digit that does not fit: start again with the rounded value.
        if (Lunghezza(t) > w) {
            x = Arrotonda(x, decimali);
            s = TestoNumero(x);
            PosizionePunto(s);
            continue;
        }
        if (i < w) Ripeti(t, riempi, w - static_cast<int>(t.size()));
        s = std::move(t);
        return true;
    }
    int lungo = Lunghezza(s);
    for (int j = w - 3; j >= 1; --j) {
        s = MascheraScientifica(x, j);
        lungo = Lunghezza(s);
        if (lungo < w) {
            s.insert(0, static_cast<std::size_t>(w - lungo), ' ');
            return true;
        }
        if (lungo == w) return true;
    }
    return w > 3 && lungo == w;
}

// Everything from the text of the rounded x on, but for the text that is appended.
std::string Componi(double x, const Campo& c) {
    const bool campo = c.destra.has_value() || c.sinistra.has_value();
    const int w = c.destra ? *c.destra : c.sinistra.value_or(0);
    if (!std::isfinite(x)) return std::string(static_cast<std::size_t>(campo ? w : 3), '*');
    std::string s = TestoNumero(x);
    const int p = PosizionePunto(s);
    std::string_view riempi = kNul;
    if (p > 0 && c.decimali) {
        riempi = c.riempi;
        Ripeti(s, riempi, *c.decimali - (Lunghezza(s) - p));
    }
    if (campo) {
        if (!InCampo(s, x, w, riempi)) return std::string(static_cast<std::size_t>(w), '*');
        if (c.sinistra) {
            s = Taglia(s);
            const int lungo = Lunghezza(s);
            if (lungo < w) s.append(static_cast<std::size_t>(w - lungo), ' ');
        }
    }
    if (c.senzaPunto && FinisceCon(Taglia(s), ".")) {
        s[s.rfind('.')] = ' ';
        if (c.destra && !c.decimali) {
            s.insert(0, " ");
            s.pop_back();
        }
    }
    return campo ? s : Taglia(s);
}

std::optional<std::size_t> Trova(const std::string& cmd, std::string_view cosa) {
    const std::size_t p = cmd.find(cosa);
    if (p == std::string::npos) return std::nullopt;
    return p;
}

// The two characters behind "_" as a whole number, read leniently.
int Argomento(const std::string& cmd, std::size_t apertura) {
    return InteroIniziale(cmd.substr(std::min(apertura + 4, cmd.size()), 2), "formato numerico");
}

}  // namespace

std::string TestoNumero(double x) {
    std::array<char, kTestoPiano> piano;
    if (const std::size_t n = TestoPiano(x, piano.data()); n > 0) return {piano.data(), n};
    if (!std::isfinite(x)) return "***";
    Decimale d = Scomponi(x, 0);
    if (d.quante > 15) d = Scomponi(x, 15);
    while (d.quante > 1 && d.cifre[static_cast<std::size_t>(d.quante - 1)] == '0') --d.quante;
    const std::string_view cifre(d.cifre.data(), static_cast<std::size_t>(d.quante));
    std::string t = x < 0.0 ? "-" : "";
    if (d.esp > 15 || d.esp < -4) {
        t += cifre[0];
        if (d.quante > 1) t.append(".").append(cifre.substr(1));
        const int e = d.esp - 1;
        t.append(e < 0 ? "E-" : "E+");
        if (std::abs(e) < 10) t += '0';
        return t.append(std::to_string(std::abs(e)));
    }
    if (d.esp <= 0) {
        t += '.';
        t.append(static_cast<std::size_t>(-d.esp), '0').append(cifre);
    } else if (d.esp >= d.quante) {
        t.append(cifre).append(static_cast<std::size_t>(d.esp - d.quante), '0');
    } else {
        t.append(cifre.substr(0, static_cast<std::size_t>(d.esp))).append(".");
        t.append(cifre.substr(static_cast<std::size_t>(d.esp)));
    }
    return t;
}

std::string TestoGenerale(double x) { return (x < 0.0 ? "" : " ") + TestoNumero(x); }

int PosizionePunto(std::string& testo) {
    if (testo.find_first_of("eE") != std::string::npos) return -1;
    std::size_t p = testo.find('.');
    if (p == std::string::npos) {
        p = testo.size();
        testo += '.';
    }
    return static_cast<int>(p) + 1;
}

int UltimaPosizione(std::string_view testo, std::string_view cerca) {
    const std::size_t p = testo.rfind(cerca);
    return p == std::string_view::npos ? 0 : static_cast<int>(p) + 1;
}

double CifreSignificative(double x, int n) {
    if (x == 0.0 || !std::isfinite(x)) return x;
    std::array<char, 160> buf{};
    const auto r =
        std::to_chars(buf.data(), buf.data() + buf.size(), x, std::chars_format::scientific, n - 1);
    double y = x;
    std::from_chars(buf.data(), r.ptr, y);
    return y;
}

std::string Formatta(double valore, std::string_view comando, double fattore,
                     const Piattaforma& piattaforma) {
    double x = valore * fattore;
    if (comando.empty()) return TestoNumero(x);
    const auto errore = [&](const char* testo) {
        MostraErrore(piattaforma, testo);
        return std::string();
    };
    std::string cmd = Minuscolo(comando);
    // Decimals grow with the size of the unit shown; the offset makes factors up to about 1.58
    // count as 1.
    short k = 0;
    if (std::fabs(fattore) > 0.0001) {
        k = InteroCorto(-(std::log10(std::fabs(fattore)) - 0.19897));
    }
    if (Trova(cmd, "(cu_")) ConvertiUnita(x, cmd, k, piattaforma);
    if (const auto p = Trova(cmd, "(cs_")) {
        const int n = Argomento(cmd, *p);
        if (n < 1) return errore("comando (cs_nn) errato.");
        x = CifreSignificative(x, n);
    }
    if (const auto p = Trova(cmd, "(dv_")) {
        const int n = Argomento(cmd, *p);
        if (n < 0) return errore("comando (dv_nn) errato (2).");
        const int m = std::max(n + k, 0);
        if (m >= 100) return errore("comando (dv_nn) errato (1).");
        // Seven characters are replaced, whatever stands there.
        cmd = cmd.substr(0, *p) + "(cd_" + (m < 10 ? "0" : "") + std::to_string(m) + ")" +
              (cmd.size() > *p + 7 ? cmd.substr(*p + 7) : "");
    }
    Campo c;
    std::string riempi = " ";
    if (const auto p = Trova(cmd, "(cd_")) {
        c.decimali = Argomento(cmd, *p);
        if (*c.decimali < 0) return errore("comando (cd_nn) errato.");
        x = Arrotonda(x, *c.decimali);
        if (const auto z = Trova(cmd, "(zr_")) {
            // From the command before it was put in lower case: the fill keeps its case.
            const std::size_t q = Minuscolo(comando).find("(zr_");
            riempi = PrimiCaratteri(comando.substr(std::min(q + 4, comando.size())), 1);
            if (riempi.empty()) riempi = " ";
        }
        c.riempi = riempi;
    }
    if (const auto p = Trova(cmd, "(fd_")) c.destra = Argomento(cmd, *p);
    if (const auto p = Trova(cmd, "(fs_")) c.sinistra = Argomento(cmd, *p);
    if (c.destra.value_or(c.sinistra.value_or(2)) < 2) {
        return errore("comando (fd_nn) o (fs_nn) errato.");
    }
    c.senzaPunto = Trova(cmd, "(np_1)").has_value();
    std::string s = Componi(x, c);
    const std::size_t sc = Minuscolo(comando).find("(sc_");
    if (sc != std::string::npos) {
        const std::string_view resto = comando.substr(sc + 4);
        s.append(resto.substr(0, resto.find(')')));
    }
    return s;
}

namespace {

void AggiungiNumero(std::string& riga, double x, int larghezza, Separatore sep, Allinea al,
                    bool intero) {
    // A width is told by two digits: from 100 on only the first two count.
    while (larghezza >= 100) larghezza /= 10;
    PRETENDI(larghezza >= 2, "larghezza di campo errata");
    // A plain number that fits together with its point, which an integer has room for all the same.
    const auto w = static_cast<std::size_t>(larghezza);
    std::array<char, kTestoPiano> piano;
    std::size_t n = TestoPiano(x, piano.data());
    const bool conPunto = std::find(piano.data(), piano.data() + n, '.') != piano.data() + n;
    if (n > 0 && n + (conPunto ? 0 : 1) <= w) {
        if (!conPunto && !intero) piano[n++] = '.';
        if (al == Allinea::destra) riga.append(w - n, ' ');
        riga.append(piano.data(), n);
        if (al == Allinea::sinistra) riga.append(w - n, ' ');
        if (sep == Separatore::barra) riga += '|';
        return;
    }
    Campo c;
    (al == Allinea::destra ? c.destra : c.sinistra) = larghezza;
    c.senzaPunto = intero;
    riga.append(Componi(x, c));
    if (sep == Separatore::barra) riga += '|';
}

}  // namespace

void AggiungiCampo(std::string& riga, double valore, int larghezza, Separatore sep, Allinea al) {
    AggiungiNumero(riga, valore, larghezza, sep, al, false);
}

void AggiungiCampo(std::string& riga, int valore, int larghezza, Separatore sep, Allinea al) {
    AggiungiNumero(riga, valore, larghezza, sep, al, true);
}

void AggiungiCampo(std::string& riga, std::string_view testo, int larghezza, Separatore sep,
                   Allinea al) {
    const std::size_t da = std::min(testo.find_first_not_of(" \t"), testo.size());
    const std::string_view t = testo.substr(da, testo.find_last_not_of(" \t") + 1 - da);
    const auto w = static_cast<std::size_t>(std::max(larghezza, 0));
    const std::size_t lungo = NumeroCaratteri(t);
    if (lungo >= w) {
        riga.append(PrimiCaratteri(t, w));
    } else {
        if (al == Allinea::destra) riga.append(w - lungo, ' ');
        riga.append(t);
        if (al == Allinea::sinistra) riga.append(w - lungo, ' ');
    }
    if (sep == Separatore::barra) riga += '|';
}

}  // namespace tk07
