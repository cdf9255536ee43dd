#include "session/recupero.h"

#include <sys/stat.h>

#include <algorithm>
#include <ctime>
#include <filesystem>

#include "base/file_testo.h"
#include "base/testo.h"
#include "session/storia.h"

namespace tk07 {

namespace {

namespace fs = std::filesystem;

constexpr const char* kInizio = "TK07_auto_";     // TK07_auto_<run>_<1|2>_<joint>.tk7
constexpr const char* kGuasto = "TK07_recupero";  // left by a fatal fault, then _2, _3, ...
constexpr std::size_t kNome = 255;                // bytes of a file's name

std::string DueCifre(int x) { return (x < 10 ? "0" : "") + std::to_string(x); }

std::string DataDi(std::time_t t) {
    std::tm o{};
#ifdef _WIN32
    localtime_s(&o, &t);
#else
    localtime_r(&t, &o);
#endif
    return std::to_string(o.tm_year + 1900) + "-" + DueCifre(o.tm_mon + 1) + "-" +
           DueCifre(o.tm_mday) + " " + DueCifre(o.tm_hour) + ":" + DueCifre(o.tm_min) + ":" +
           DueCifre(o.tm_sec);
}

// Name of the joint in a copy's file name; empty when the name is none of ours.
std::string NodoDellaCopia(const std::string& file) {
    if (file.rfind(kInizio, 0) != 0 || !FinisceCon(file, ".tk7")) return {};
    const std::size_t segno = std::string_view(kInizio).size();
    const std::size_t posto = file.find('_', segno);
    if (posto == std::string::npos) return {};
    const std::size_t nome = file.find('_', posto + 1);
    return nome == std::string::npos ? "" : NomeBase(file.substr(nome + 1));
}

// The copy's name holds as much of the joint's as the file system takes.
std::string NomeCopia(const std::string& inizio, std::string nodo) {
    const std::size_t posto = kNome - inizio.size() - std::string_view(".tk7").size();
    while (nodo.size() > posto) nodo = PrimiCaratteri(nodo, NumeroCaratteri(nodo) - 1);
    return inizio + nodo + ".tk7";
}

}  // namespace

std::string RiassuntoNodo(const Nodo& n) {
    const auto conta = [](int quanti, const char* uno, const char* tanti) {
        return std::to_string(quanti) + " " + (quanti == 1 ? uno : tanti);
    };
    return n.TraSec.Nome + " su " + n.TraPri.Nome + ", " + conta(n.nBull, "bullone", "bulloni") +
           ", " + conta(n.nSollAg, "sestetto", "sestetti") + ", " + NomeMetodo(n.MetodoVerifica());
}

CopieAutomatiche::CopieAutomatiche(std::string dirTemp, std::string segno)
    : dirTemp_(std::move(dirTemp)), segno_(std::move(segno)) {}

std::string CopieAutomatiche::Scrivi(const Sessione& s, const Nodo& nodo) {
    if (ultima_ && ultimoNome_ == s.nomeFile && StessoNodo(*ultima_, nodo)) return {};
    const std::string file =
        dirTemp_ + "\\" +
        NomeCopia(kInizio + segno_ + "_" + std::to_string(prossima_) + "_", s.nomeFile);
    const std::string errore =
        ScriviFile(file, TestoFileNodo(nodo, s.piattaforma.orologio()), Codifica::windows1252);
    if (!errore.empty()) return errore;
    std::string& posto = posto_[prossima_ - 1];
    // The joint's name has changed since: the older copy of this place goes after the new one is
    // safe.
    if (!posto.empty() && posto != file) EliminaFile(posto);
    posto = file;
    prossima_ = 3 - prossima_;
    ultima_ = std::make_unique<const Nodo>(nodo);
    ultimoNome_ = s.nomeFile;
    return {};
}

std::string CopieAutomatiche::Conserva(const std::string& file) {
    const std::string a =
        dirTemp_ + "\\" +
        NomeCopia(kInizio + segno_ + "_s" + std::to_string(++conservati_) + "_", NomeBase(file));
    const fs::path da = PercorsoPiattaforma(file), copia = PercorsoPiattaforma(a);
    std::error_code ec;
    fs::copy_file(da, copia, fs::copy_options::overwrite_existing, ec);
    if (ec) return MessaggioSistema(ec.value());
    const auto data = fs::last_write_time(da, ec);
    if (!ec) fs::last_write_time(copia, data, ec);
    return {};
}

std::vector<CopiaTrovata> TrovaCopie(const Sessione& s) {
    std::vector<CopiaTrovata> trovate;
    std::error_code ec;
    for (fs::directory_iterator it(PercorsoPiattaforma(s.dir.dirTemp), ec), fine; !ec && it != fine;
         it.increment(ec)) {
        const std::string file = it->path().filename().string();
        CopiaTrovata c;
        c.percorso = it->path().string();
        c.nomeFile = file.rfind(kGuasto, 0) == 0 && FinisceCon(file, ".tk7") ? NomeBase(file)
                                                                             : NodoDellaCopia(file);
        struct stat st {};
        if (c.nomeFile.empty() || stat(c.percorso.c_str(), &st) != 0) continue;
        c.istante = st.st_mtime;
        c.data = DataDi(st.st_mtime);
        const auto nodo = std::make_unique<Nodo>();
        c.leggibile = !ProvaFileNodo(*nodo, c.percorso);  // a damaged copy is listed as such
        c.riassunto = c.leggibile ? RiassuntoNodo(*nodo) : "non leggibile";
        trovate.push_back(c);
    }
    std::sort(trovate.begin(), trovate.end(), [](const CopiaTrovata& a, const CopiaTrovata& b) {
        return a.istante != b.istante ? a.istante > b.istante : a.percorso < b.percorso;
    });
    return trovate;
}

bool ApriCopia(Sessione& s, const CopiaTrovata& copia) {
    if (!ApriNodo(s, copia.percorso)) return false;
    s.nomeFile = copia.nomeFile;
    s.InsDati.titolo = ComponiTitolo(s.dir.dirLavoro, s.nomeFile + ".tk7");
    return true;
}

}  // namespace tk07
