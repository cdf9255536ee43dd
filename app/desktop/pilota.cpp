#include "desktop/pilota.h"

#include <QCoreApplication>
#include <QDateTime>

#include "base/file_testo.h"
#include "desktop/testo_qt.h"
#include "session/pannello_insdati.h"

namespace tk07 {

namespace {

constexpr int kCopiaOgni = 30'000;  // ms: two copies in turn, never older than a minute

}  // namespace

Pilota::Pilota(QObject* padre)
    : QObject(padre),
      s_(std::make_unique<Sessione>()),
      mostrato_(std::make_unique<Nodo>()),
      nodoVerificato_(std::make_unique<Nodo>()) {
    copia_.setObjectName(QStringLiteral("CopiaAutomatica"));
    copia_.setInterval(kCopiaOgni);
    connect(&copia_, &QTimer::timeout, this, &Pilota::CopiaOra);
}

Pilota::~Pilota() = default;

bool Pilota::Avvia(const struct Avvio& avvio) {
    s_->piattaforma.scegliFile = [this,
                                  scegli = s_->piattaforma.scegliFile](const RichiestaFile& r) {
        auto scelto = scegli(r);
        if (scelto) ultimoFile_ = scelto->percorso;
        return scelto;
    };
    bool avviata = false;
    EseguiComando(*s_, [&] { avviata = tk07::Avvia(*s_, avvio); });
    if (!avviata) return false;
    const QString segno = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMddHHmmss")) +
                          QLatin1Char('p') + QString::number(QCoreApplication::applicationPid());
    copie_ = std::make_unique<CopieAutomatiche>(s_->dir.dirTemp, S(segno));
    *mostrato_ = s_->nodo;
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
    ++inCorso_;
    comando();
    --inCorso_;
    const bool passo = storia_.Registra(*s_, std::move(prima), S(cosa));
    if (passo && !copia_.isActive()) copia_.start();
    DopoComando();
}

void Pilota::Muovi(const std::function<void()>& comando) {
    if (s_->fine) return;
    ++inCorso_;
    comando();
    --inCorso_;
    if (inCorso_ == 0) Q_EMIT mosso();
}

void Pilota::DopoComando() {
    // A verification that has just been completed: its summary stays until the next.
    if (s_->RisultatiValidi) {
        *nodoVerificato_ = s_->nodo;
        verificato_ = RiepilogoVerifica(s_->nodo, s_->opz, s_->ris);
        haVerifica_ = true;
    }
    scrivendo_ = false;
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
    try {
        MettiCampo(*s_, DividiNome(campo), testo, *mostrato_);
    } catch (const ErroreFatale&) {
        return;  // a number beyond every range: told when the field is left
    }
    scrivendo_ = true;
    Esamina();
    Q_EMIT anteprimaCambiata();
}

void Pilota::Annulla() {
    if (inCorso_ > 0 || s_->pila.size() > 1) return;
    if (lascia_) lascia_();
    ++inCorso_;
    EseguiComando(*s_, [&] { storia_.Annulla(*s_); });
    --inCorso_;
    DopoComando();
}

void Pilota::Ripeti() {
    if (inCorso_ > 0 || s_->pila.size() > 1) return;
    if (lascia_) lascia_();
    ++inCorso_;
    EseguiComando(*s_, [&] { storia_.Ripeti(*s_); });
    --inCorso_;
    DopoComando();
}

void Pilota::ImpostaDalVivo(bool acceso) {
    dalVivo_ = acceso;
    *mostrato_ = s_->nodo;
    Esamina();
    Q_EMIT anteprimaCambiata();
}

bool Pilota::RiepilogoValido() const {
    return ComeRelazione() || (dalVivo_ ? esame_.calcolato : haVerifica_);
}

const Riepilogo& Pilota::IlRiepilogo() const {
    return dalVivo_ && !ComeRelazione() ? esame_.riepilogo : verificato_;
}

const Nodo& Pilota::NodoDelRiepilogo() const {
    return dalVivo_ && !ComeRelazione() ? *mostrato_ : *nodoVerificato_;
}

void Pilota::CopiaOra() {
    if (!copie_ || inCorso_ > 0) return;
    const std::string errore = copie_->Scrivi(*s_);
    if (!errore.empty()) {
        Q_EMIT avviso(QStringLiteral("Copia automatica non riuscita: ") + Q(errore));
    }
}

}  // namespace tk07
