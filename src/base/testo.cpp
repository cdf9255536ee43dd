#include "base/testo.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/aritmetica.h"
#include "base/errore.h"

namespace tk07 {

namespace {

bool Bianco(char c) { return c == ' ' || c == '\t'; }
bool Cifra(char c) { return c >= '0' && c <= '9'; }

// Length of the number at the start of `t` (sign, digits with a point, exponent), 0 when none.
std::size_t LunghezzaNumero(std::string_view t) {
    std::size_t i = 0;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
    const std::size_t inizio = i;
    while (i < t.size() && Cifra(t[i])) ++i;
    std::size_t cifre = i - inizio;
    if (i < t.size() && t[i] == '.') {
        std::size_t j = i + 1;
        while (j < t.size() && Cifra(t[j])) ++j;
        cifre += j - i - 1;
        if (cifre > 0) i = j;
    }
    if (cifre == 0) return 0;
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
        std::size_t j = i + 1;
        if (j < t.size() && (t[j] == '+' || t[j] == '-')) ++j;
        const std::size_t esp = j;
        while (j < t.size() && Cifra(t[j])) ++j;
        if (j > esp) i = j;
    }
    return i;
}

// Power of ten of the first digit that counts: what is beyond the range of a double is too small
// below 0, too large above.
long OrdineDiGrandezza(std::string_view t) {
    long ordine = 0;
    bool dopoPunto = false, trovata = false;
    std::size_t i = 0;
    for (; i < t.size() && t[i] != 'e' && t[i] != 'E'; ++i) {
        if (t[i] == '.') dopoPunto = true;
        if (!Cifra(t[i])) continue;
        trovata = trovata || t[i] != '0';
        if (trovata && !dopoPunto) ++ordine;
        if (!trovata && dopoPunto) --ordine;
    }
    long esponente = 0;
    if (i < t.size()) {
        const bool piu = i + 1 < t.size() && t[i + 1] == '+';
        const char* da = t.data() + i + (piu ? 2 : 1);
        const auto r = std::from_chars(da, t.data() + t.size(), esponente);
        if (r.ec != std::errc()) esponente = *da == '-' ? -1000000000L : 1000000000L;
    }
    return ordine + esponente;
}

// The number that `t` spells; too small is 0, too large has no value.
std::optional<double> Converti(std::string_view t) {
    if (!t.empty() && t.front() == '+') t.remove_prefix(1);
    double x = 0.0;
    const auto r = std::from_chars(t.data(), t.data() + t.size(), x);
    if (r.ec != std::errc::result_out_of_range) return x;
    if (OrdineDiGrandezza(t) <= 0) return 0.0;
    return std::nullopt;
}

// The part of `t` that spells its leading number.
std::string_view TrattoNumero(std::string_view t) {
    while (!t.empty() && Bianco(t.front())) t.remove_prefix(1);
    return t.substr(0, LunghezzaNumero(t));
}

// Folds one two-byte Latin letter C3 80..C3 BE; 0xD7 and 0xF7 (times, divide) have no case.
char PiegaLatino(unsigned char c, bool minuscolo) {
    if (minuscolo && c >= 0x80 && c <= 0x9E && c != 0x97) return static_cast<char>(c + 0x20);
    if (!minuscolo && c >= 0xA0 && c <= 0xBE && c != 0xB7) return static_cast<char>(c - 0x20);
    return static_cast<char>(c);
}

std::string Piega(std::string_view testo, bool minuscolo) {
    std::string r(testo);
    for (std::size_t i = 0; i < r.size(); ++i) {
        const char c = r[i];
        if (minuscolo && c >= 'A' && c <= 'Z') r[i] = static_cast<char>(c + 32);
        if (!minuscolo && c >= 'a' && c <= 'z') r[i] = static_cast<char>(c - 32);
        if (static_cast<unsigned char>(c) == 0xC3 && i + 1 < r.size()) {
            ++i;
            r[i] = PiegaLatino(static_cast<unsigned char>(r[i]), minuscolo);
        }
    }
    return r;
}

}  // namespace

std::string TagliaDestra(std::string_view t) {
    while (!t.empty() && Bianco(t.back())) t.remove_suffix(1);
    return std::string(t);
}

std::string Taglia(std::string_view t) {
    while (!t.empty() && Bianco(t.back())) t.remove_suffix(1);
    while (!t.empty() && Bianco(t.front())) t.remove_prefix(1);
    return std::string(t);
}

std::string Minuscolo(std::string_view testo) { return Piega(testo, true); }
std::string Maiuscolo(std::string_view testo) { return Piega(testo, false); }

bool Contiene(std::string_view testo, std::string_view cerca) {
    return testo.find(cerca) != std::string_view::npos;
}

bool FinisceCon(std::string_view testo, std::string_view fine) {
    return testo.size() >= fine.size() && testo.substr(testo.size() - fine.size()) == fine;
}

std::size_t NumeroCaratteri(std::string_view testo) {
    return static_cast<std::size_t>(std::count_if(testo.begin(), testo.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

std::string PrimiCaratteri(std::string_view testo, std::size_t n) {
    std::size_t i = 0;
    while (i < testo.size()) {
        if ((static_cast<unsigned char>(testo[i]) & 0xC0) != 0x80 && n-- == 0) break;
        ++i;
    }
    return std::string(testo.substr(0, i));
}

std::string EstraiCampo(std::string& riga, char separatore) {
    std::replace(riga.begin(), riga.end(), '\t', ' ');
    riga.erase(riga.find_last_not_of(' ') + 1);
    const std::size_t da = std::min(riga.find_first_not_of(' '), riga.size());
    const std::size_t p = std::min(riga.find(separatore, da), riga.size());
    std::string campo = Taglia(std::string_view(riga).substr(da, p - da));
    riga.erase(0, riga.find_first_not_of(' ', std::min(p + 1, riga.size())));
    return campo;
}

int ContaCampi(std::string_view riga) {
    int n = 0;
    bool dentro = false;
    for (const char c : riga) {
        if (Bianco(c)) {
            dentro = false;
        } else if (!dentro) {
            dentro = true;
            if (++n == 50) break;
        }
    }
    return n;
}

std::string SostituisciTesto(std::string_view testo, std::string_view cerca, std::string_view nuovo,
                             Maiuscole maiuscole) {
    if (cerca.empty()) return std::string(testo);
    const bool piega = maiuscole == Maiuscole::indifferenti;
    const std::string dove = piega ? Minuscolo(testo) : std::string(testo);
    const std::string cosa = piega ? Minuscolo(cerca) : std::string(cerca);
    std::string r;
    std::size_t i = 0;
    for (std::size_t p = dove.find(cosa); p != std::string::npos; p = dove.find(cosa, i)) {
        r.append(testo.substr(i, p - i)).append(nuovo);
        i = p + cosa.size();
    }
    return r.append(testo.substr(i));
}

std::vector<std::string> Dividi(std::string_view testo, char separatore) {
    std::vector<std::string> r;
    for (;;) {
        const std::size_t p = testo.find(separatore);
        r.emplace_back(testo.substr(0, p));
        if (p == std::string_view::npos) return r;
        testo.remove_prefix(p + 1);
    }
}

std::string TogliCR(std::string_view testo) {
    std::string r;
    r.reserve(testo.size());
    for (const char c : testo) {
        if (c == '\r') {
            r += ' ';
        } else if (c != '\n') {
            r += c;
        }
    }
    return r;
}

std::optional<double> NumeroIniziale(std::string_view t) {
    const std::string_view numero = TrattoNumero(t);
    return numero.empty() ? 0.0 : Converti(numero);
}

std::string TroppoGrande(std::string_view t) {
    return "Numero troppo grande: " + std::string(TrattoNumero(t).substr(0, 40));
}

double ValoreIniziale(std::string_view t) {
    const auto x = NumeroIniziale(t);
    if (!x) throw ErroreFatale(TroppoGrande(t));
    return *x;
}

std::optional<double> ValoreStretto(std::string_view testo) {
    while (!testo.empty() && Bianco(testo.back())) testo.remove_suffix(1);
    while (!testo.empty() && Bianco(testo.front())) testo.remove_prefix(1);
    if (testo.empty() || LunghezzaNumero(testo) != testo.size()) return std::nullopt;
    return Converti(testo);
}

std::optional<short> CortoIniziale(std::string_view testo, std::string& perche) {
    const auto x = NumeroIniziale(testo);
    const auto n = x ? Corto(*x) : std::nullopt;
    if (!n) perche = x ? kOltreSediciBit : TroppoGrande(testo);
    return n;
}

short InteroIniziale(std::string_view testo, std::string_view dove) {
    std::string perche;
    const auto n = CortoIniziale(testo, perche);
    if (!n) throw ErroreFatale(perche, std::string(dove));
    return *n;
}

std::string TestoReale(double x) {
    char buf[512];
    if (x == 0.0) return "0";
    const auto piana = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::fixed);
    if (piana.ec == std::errc() && piana.ptr - buf <= 25) return {buf, piana.ptr};
    const auto r = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific);
    return {buf, r.ptr};
}

std::string TestoIntero(long x) { return std::to_string(x); }

}  // namespace tk07
