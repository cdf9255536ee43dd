#include "base/piattaforma.h"

#include <ctime>

namespace tk07 {

namespace {

Orologio OraLocale() {
    const std::time_t adesso = std::time(nullptr);
    std::tm t{};
#ifdef _WIN32
    localtime_s(&t, &adesso);
#else
    localtime_r(&adesso, &t);
#endif
    return {t.tm_year + 1900, t.tm_mon + 1, t.tm_mday, t.tm_hour, t.tm_min};
}

}  // namespace

Piattaforma PiattaformaMuta() {
    Piattaforma p;
    p.messaggio = [](const std::string&, const std::string&, Segno, Pulsanti) {
        return Risposta::OK;
    };
    p.scegliFile = [](const RichiestaFile&) { return std::nullopt; };
    p.avvia = [](const std::string&, const std::vector<std::string>&, bool) { return false; };
    p.attivaFinestra = [](const std::string&) { return false; };
    p.inviaTasti = [](const std::string&) {};
    p.puntatore = [](int) {};
    p.apriPannello = [](const std::string&) {};
    p.chiudiPannello = [](const std::string&) {};
    p.avanzamento = [](long, long, const std::string&) { return true; };
    p.orologio = OraLocale;
    return p;
}

void MostraErrore(const Piattaforma& p, const std::string& testo, const std::string& titolo) {
    p.messaggio(testo, titolo, Segno::critico, Pulsanti::OK);
}

void MostraAvviso(const Piattaforma& p, const std::string& testo, const std::string& titolo) {
    p.messaggio(testo, titolo, Segno::esclamazione, Pulsanti::OK);
}

std::string NomeSegno(Segno s) {
    switch (s) {
        case Segno::critico:
            return "critico";
        case Segno::esclamazione:
            return "esclamazione";
        case Segno::informazione:
            return "informazione";
        case Segno::domanda:
            return "domanda";
        case Segno::nessuno:
            break;
    }
    return "nessuno";
}

}  // namespace tk07
