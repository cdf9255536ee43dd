#include "desktop/pilota.h"

#include <QCoreApplication>
#include <QDateTime>
#include <chrono>
#include <filesystem>
#include <utility>

#include "base/file_testo.h"
#include "base/testo.h"
#include "desktop/testo_qt.h"
#include "session/pannello_insdati.h"

namespace tk07::desktop {

namespace {

// Counts the commands that are under way, whatever ends them.
class InCorso {
  public:
    explicit InCorso(int& quanti) : quanti_(quanti) { ++quanti_; }
    ~InCorso() { --quanti_; }
    InCorso(const InCorso&) = delete;
    InCorso& operator=(const InCorso&) = delete;

  private:
    int& quanti_;
};

constexpr int kCopiaOgni = 30'000;  // ms: two copies in turn, never older than a minute

}  // namespace

Pilota::Pilota(QObject* padre)
    : QObject(padre),
      s_(std::make_unique<Sessione>()),
      mostrato_(std::make_unique<Nodo>()),
      nodoVerificato_(std::make_unique<Nodo>()),
      salvato_(std::make_unique<Nodo>()) {
    copia_.setObjectName(QStringLiteral("CopiaAutomatica"));
    copia_.setInterval(kCopiaOgni);
    connect(&copia_, &QTimer::timeout, this, &Pilota::CopiaOra);
}

Pilota::~Pilota() = default;

bool Pilota::Avvia(const struct Avvio& avvio) {
    s_->piattaforma.scegliFile = [this, scegli = s_->piattaforma.scegliFile](
                                     const RichiestaFile& r) -> std::optional<FileScelto> {
        auto scelto = scegli(r);
        if (scelto && r.filtro == kFiltroNodo) {
            if (r.modo == ModoFile::apri && !Leggibile(scelto->percorso)) return {};
            ultimoFile_ = scelto->percorso;
            Conosci(ultimoFile_);  // overwriting was asked for by the dialog
        }
        return scelto;
    };
    bool avviata = false;
    EseguiComando(*s_, [&] { avviata = tk07::Avvia(*s_, avvio); });
    if (!avviata) return false;
    const QString segno = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMddHHmmss")) +
                          QLatin1Char('p') + QString::number(QCoreApplication::applicationPid());
    copie_ = std::make_unique<CopieAutomatiche>(s_->dir.dirTemp, S(segno));
    *mostrato_ = *salvato_ = s_->nodo;
    Esamina();
    return true;
}

void Pilota::InMano(const std::string& pannello, const std::string& campo,
                    const std::function<void()>& lascia) {
    pannelloInMano_ = pannello;
    campo_ = campo;
    lascia_ = lascia;
    Q_EMIT campoInManoCambiato();
}

void Pilota::NonPiuInMano(const std::string& pannello, const std::string& campo) {
    if (pannello != pannelloInMano_ || campo != campo_) return;
    campo_.clear();
    lascia_ = nullptr;
    Q_EMIT campoInManoCambiato();
}

void Pilota::Fai(const QString& cosa, const std::function<void()>& comando) {
    if (s_->fine) return;
    if (inCorso_ > 0) {  // part of a larger command
        comando();
        return;
    }
    // A text that is typed but not yet taken counts as left, and is a step of its own.
    if (lascia_) {
        const auto lascia = lascia_;
        lascia_ = nullptr;
        lascia();
        lascia_ = lascia;
        if (s_->fine) return;
    }
    Storia::Stato prima = Storia::Fotografa(*s_);
    s_->ultimaLettura = NoteLettura{};
    const std::string acciaio = s_->nodo.acciaio.Nome;
    const Metodo metodo = s_->nodo.MetodoVerifica();
    const FileDelNodo file = s_->file;
    {
        const InCorso guardia(inCorso_);
        comando();
    }
    // A file was opened or written, unless it is a copy that was recovered.
    const bool altroFile = s_->file.percorso != file.percorso || s_->file.impronta != file.impronta;
    if (altroFile && conosciuti_.contains(PercorsoPiattaforma(s_->file.percorso))) {
        *salvato_ = s_->nodo;
    }
    // The panel keeps a steel for each method: the one that comes back is named.
    if (!altroFile && s_->nodo.MetodoVerifica() != metodo && s_->nodo.acciaio.Nome != acciaio) {
        acciaioCambiato_ = {Taglia(acciaio), Taglia(s_->nodo.acciaio.Nome)};
    }
    const bool passo = storia_.Registra(*s_, std::move(prima), S(cosa));
    if (passo && !copia_.isActive()) copia_.start();
    DopoComando();
    if (!s_->fine) AvvisaLetturaParziale();
}

void Pilota::Muovi(const std::function<void()>& comando) {
    if (s_->fine) return;
    {
        const InCorso guardia(inCorso_);
        comando();
    }
    if (inCorso_ == 0) Q_EMIT mosso();
}

void Pilota::DopoComando() {
    // A verification that has just been completed: its findings stay until the next.
    if (s_->RisultatiValidi) {
        *nodoVerificato_ = s_->nodo;
        verificato_ = s_->esiti;
        haVerifica_ = true;
    }
    scrivendo_ = false;
    if (Taglia(s_->nodo.acciaio.Nome) != acciaioCambiato_.second) acciaioCambiato_ = {};
    *mostrato_ = s_->nodo;
    Esamina();
    Q_EMIT cambiato();
    Q_EMIT anteprimaCambiata();
    if (s_->fine) {
        CopiaOra();
        Q_EMIT finito(s_->codiceUscita);
    }
}

void Pilota::Esamina() {
    QElapsedTimer t;
    t.start();
    // The joint to draw has its third rib up to date either way.
    if (dalVivo_) {
        EsaminaNodo(*mostrato_, s_->opz, esame_);
    } else {
        RicalcolaNervatura3(*mostrato_);
    }
    ultimoMs_ = static_cast<double>(t.nsecsElapsed()) / 1e6;
}

void Pilota::TestoInCorso(const std::string& campo, const std::string& testo) {
    *mostrato_ = s_->nodo;
    if (!NumeroIniziale(testo)) return;  // beyond every range: told when the field is left
    MettiCampo(*s_, DividiNome(campo), testo, *mostrato_);
    scrivendo_ = true;
    if (!copia_.isActive()) copia_.start();  // from the first key on
    Esamina();
    Q_EMIT anteprimaCambiata();
}

void Pilota::Annulla() {
    if (inCorso_ > 0 || s_->pila.size() > 1) return;
    if (lascia_) lascia_();
    {
        const InCorso guardia(inCorso_);
        EseguiComando(*s_, [&] { storia_.Annulla(*s_); });
    }
    DopoComando();
}

void Pilota::Ripeti() {
    if (inCorso_ > 0 || s_->pila.size() > 1) return;
    if (lascia_) lascia_();
    {
        const InCorso guardia(inCorso_);
        EseguiComando(*s_, [&] { storia_.Ripeti(*s_); });
    }
    DopoComando();
}

void Pilota::ImpostaDalVivo(bool acceso) {
    dalVivo_ = acceso;
    *mostrato_ = s_->nodo;
    Esamina();
    Q_EMIT anteprimaCambiata();
}

bool Pilota::EsitiValidi() const {
    return ComeRelazione() || (dalVivo_ ? esame_.calcolato : haVerifica_);
}

const Esiti& Pilota::GliEsiti() const {
    return dalVivo_ && !ComeRelazione() ? esame_.esiti : verificato_;
}

const Nodo& Pilota::NodoDegliEsiti() const {
    return dalVivo_ && !ComeRelazione() ? *mostrato_ : *nodoVerificato_;
}

std::optional<Tab1<double, 1, 3>> Pilota::PianoDegliEsiti(int s) const {
    if (Superati() && !dalVivo_) return std::nullopt;
    const Risultati& ris = dalVivo_ && !ComeRelazione() ? esame_.ris : s_->ris;
    if (s < 0 || s >= ris.Piano.Righe()) return std::nullopt;
    return PianoTensioni(ris, s);
}

bool Pilota::Leggibile(const std::string& file) const {
    const auto prova = std::make_unique<Nodo>();
    double releaseArgano = 0.0, releaseFile = 0.0;
    // What is no file at all is told by the command that opens it.
    if (!LeggiRelease(file, releaseArgano, releaseFile, false, PiattaformaMuta()) ||
        releaseFile < 1.0) {
        return true;
    }
    const auto guasto = ProvaFileNodo(*prova, file);
    if (!guasto || guasto->apertura) return true;
    MostraErrore(s_->piattaforma,
                 "File: " + PercorsoMostrato(file) + "\n" + guasto->cosa + "\n" + guasto->dove,
                 "TK07 - LETTURA NON RIUSCITA");
    return false;
}

// A file that lacks data leaves those of the joint before: a mixture must not pass in silence.
void Pilota::AvvisaLetturaParziale() {
    const NoteLettura note = std::exchange(s_->ultimaLettura, NoteLettura{});
    std::string valori;
    for (const std::string& v : note.Valori) valori += "\n" + v;
    if (!valori.empty()) {
        MostraAvviso(s_->piattaforma, "Valori del file letti diversamente da come sono scritti:" +
                                          PrimiCaratteri(valori, 1000));
    }
    std::string testo;
    if (note.RigaInterrotta > 0) {
        testo = "Il file è letto fino alla riga " + std::to_string(note.RigaInterrotta) + " (" +
                note.Causa + "). Per il resto valgono i dati del nodo che era aperto";
    } else if (const std::size_t n = note.ChiaviMancanti.size(); n > 0) {
        constexpr std::size_t kNominate = 6;
        std::string nomi;
        for (std::size_t i = 0; i < n && i < kNominate; ++i) {
            nomi += (i > 0 ? ", " : "") + note.ChiaviMancanti[i];
        }
        testo = "Il file è incompleto o rovinato: mancano " + std::to_string(n) + " dati (" + nomi +
                (n > kNominate ? ", ..." : "") +
                "). Per questi valgono quelli del nodo che era aperto";
    }
    if (testo.empty()) return;
    MostraAvviso(s_->piattaforma, testo + ": controllare ogni pagina, o annullare.");
}

void Pilota::Conosci(const std::string& file) {
    conosciuti_[PercorsoPiattaforma(file)] = ImprontaFile(file);
}

bool Pilota::DaSalvare() const { return scrivendo_ || !StessoNodo(*salvato_, s_->nodo); }

void Pilota::AcciaioVisto() {
    acciaioCambiato_ = {};
    Q_EMIT anteprimaCambiata();
}

// Why Save must not go on without a question; empty: nothing speaks against it.
std::string Pilota::PercheChiedere(const std::string& file) const {
    std::string perche;
    const auto noto = conosciuti_.find(file);
    const bool esiste = EsisteFile(file);
    if (noto == conosciuti_.end()) {
        perche += esiste ? "\nEsiste già, e non è stato aperto né salvato da questa finestra."
                         : "\nNon esiste ancora.";
    } else if (esiste && ImprontaFile(file) != noto->second) {
        perche += "\nÈ cambiato su disco da quando è stato aperto o salvato qui.";
    }
    for (const NomeAssente& a : NomiPersi(s_->nodo)) {
        perche += "\nAndrebbe perso " + a.chiave + " \"" + PrimiCaratteri(a.nome, 60) +
                  "\", che non è nelle librerie.";
    }
    if (!s_->file.percorso.empty() && PercorsoPiattaforma(s_->file.percorso) != file) {
        perche += "\nIl nodo viene da " + PercorsoMostrato(s_->file.percorso) + ".";
    }
    return perche;
}

void Pilota::Salva(const std::string& pulsante) {
    std::string file;
    if (pulsante == "Bt_salva") {
        file = PercorsoPiattaforma(s_->dir.dirLavoro + "\\" + s_->nomeFile + ".tk7");
        if (const std::string perche = PercheChiedere(file); !perche.empty()) {
            const std::string testo =
                "Salvare il nodo in " + PercorsoMostrato(file) + " ?" + perche;
            Salvare risposta = Salvare::rinuncia;
            if (chiediSalva) {
                risposta = chiediSalva(Q(testo));
            } else if (s_->piattaforma.messaggio(testo, kTitoloProgramma, Segno::domanda,
                                                 Pulsanti::OKAnnulla) == Risposta::OK) {
                risposta = Salvare::scrivi;
            }
            if (risposta == Salvare::conNome) return Salva("Bt_salva_con_nome");
            if (risposta == Salvare::rinuncia) return;
        }
        if (!conosciuti_.contains(file) && EsisteFile(file) && copie_) {
            const std::string errore = copie_->Conserva(file);
            Q_EMIT avviso(errore.empty()
                              ? QStringLiteral("Il file di prima è in File, Recupera")
                              : QStringLiteral("Copia automatica non riuscita: ") + Q(errore));
        }
    }
    // The clock of files may lag behind by some milliseconds.
    const auto inizio =
        std::filesystem::file_time_type::clock::now() - std::chrono::milliseconds(50);
    const std::string altroPrima = ultimoFile_;
    ultimoFile_.clear();
    PremiPulsante(*s_, pulsante, "InsDati");
    if (pulsante != "Bt_salva") file = PercorsoPiattaforma(ultimoFile_);
    if (ultimoFile_.empty()) ultimoFile_ = altroPrima;
    std::error_code ec;
    const auto scritto = std::filesystem::last_write_time(file, ec);
    if (file.empty() || ec || scritto < inizio) return;  // refused or failed: it was told
    Conosci(file);
    Q_EMIT avviso(QStringLiteral("Nodo salvato in ") + Q(PercorsoMostrato(file)));
}

void Pilota::CopiaOra() {
    if (!copie_ || inCorso_ > 0) return;
    const std::string errore = copie_->Scrivi(*s_, scrivendo_ ? *mostrato_ : s_->nodo);
    if (!errore.empty()) {
        Q_EMIT avviso(QStringLiteral("Copia automatica non riuscita: ") + Q(errore));
    }
}

}  // namespace tk07::desktop
