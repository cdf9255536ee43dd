#include "cli/per_ogni_file.h"

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "base/file_testo.h"
#include "base/nomi_presenti.h"
#include "cli/barra.h"

namespace tk07::cli {

namespace {

// One worker's session, which is set back before each file.
struct Postazione {
    PortaCli porta;
    NomiPresenti nomi;
    std::unique_ptr<Sessione> s;
};

void Prepara(Sessione& s, NomiPresenti& nomi, bool lotto) {
    s.conPannelli = false;
    s.nomi = &nomi;
    s.tenutaRelazioni = lotto ? Tenuta::provvisoria : Tenuta::suDisco;
}

// What came of one file.
struct Esito {
    int codice = kUscitaOk;
    std::vector<MessaggioUscita> detto;
};

// The files on several threads; whoever prints takes the outcomes in order.
class Lotto {
  public:
    Lotto(const Sessione& inizio, const std::vector<std::string>& file, const LavoroSuFile& lavoro,
          const ModoLotto& modo)
        : inizio_(inizio), file_(file), lavoro_(lavoro), modo_(modo), esiti_(file.size()) {
        const std::size_t quanti =
            std::min(static_cast<std::size_t>(std::max(modo.fili, 1)), file.size());
        for (std::size_t k = 0; k < quanti; ++k) fili_.emplace_back([this] { Lavora(); });
    }
    // Lets each thread end the file that it has in hand.
    ~Lotto() {
        {
            const std::lock_guard blocco(mutex_);
            fermo_ = true;
        }
        avanti_.notify_all();
        for (std::thread& f : fili_) f.join();
    }
    Lotto(const Lotto&) = delete;
    Lotto& operator=(const Lotto&) = delete;

    Esito Prendi(std::size_t i) {
        std::unique_lock blocco(mutex_);
        pronto_.wait(blocco, [&] { return esiti_[i].has_value(); });
        Esito e = std::move(*esiti_[i]);
        esiti_[i].reset();
        presi_ = i + 1;
        avanti_.notify_all();
        return e;
    }

  private:
    static constexpr std::size_t kAnticipo = 256;  // files ahead of the one that is printed

    void Lavora() {
        Postazione p;
        p.s = std::make_unique<Sessione>(inizio_);
        p.s->piattaforma = p.porta.Fai();
        p.s->nomi = &p.nomi;
        p.s->InsDati.aperto = false;  // no recovery file: a fatal fault is worked again alone
        const auto inizio = std::make_unique<Sessione>(*p.s);
        for (;;) {
            std::size_t i = 0;
            {
                std::unique_lock blocco(mutex_);
                avanti_.wait(blocco, [&] {
                    return fermo_ || prossimo_ >= file_.size() || prossimo_ < presi_ + kAnticipo;
                });
                if (fermo_ || prossimo_ >= file_.size()) return;
                i = prossimo_++;
            }
            Esito e;
            p.porta.raccolta = &e.detto;
            p.porta.fermati = modo_.fermati;
            p.porta.apri = modo_.apri;
            Ricomincia(*p.s, *inizio);
            try {
                e.codice = lavoro_(*p.s, p.porta, file_[i]);
            } catch (const std::exception&) {
                e.codice = kUscitaFatale;  // comes up again when the file is worked alone
            }
            const std::lock_guard blocco(mutex_);
            esiti_[i] = std::move(e);
            pronto_.notify_all();
        }
    }

    const Sessione& inizio_;
    const std::vector<std::string>& file_;
    const LavoroSuFile& lavoro_;
    const ModoLotto& modo_;
    std::mutex mutex_;
    std::condition_variable pronto_, avanti_;
    std::vector<std::optional<Esito>> esiti_;
    std::size_t prossimo_ = 0, presi_ = 0;
    bool fermo_ = false;
    std::vector<std::thread> fili_;
};

}  // namespace

int PerOgniFile(const Avvio& avvio, const std::vector<std::string>& file,
                const LavoroSuFile& lavoro, const ModoLotto& modo) {
    Banco banco(avvio);
    if (!banco.Avviato()) return banco.codice;
    banco.porta.fermati = modo.fermati;
    banco.porta.apri = modo.apri;
    NomiPresenti nomi;
    const bool tanti = file.size() > 1;
    Prepara(*banco.s, nomi, tanti);
    const auto inizio = tanti ? std::make_unique<Sessione>(*banco.s) : nullptr;
    std::optional<Lotto> lotto;
    if (tanti && modo.fili > 1) lotto.emplace(*inizio, file, lavoro, modo);

    Barra barra(file.size());
    int codice = kUscitaOk;
    for (std::size_t i = 0; i < file.size(); ++i) {
        std::optional<Esito> esito;
        if (lotto) esito = lotto->Prendi(i);
        barra.Cancella();
        if (i == 0) Stampa(modo.testata);
        // A fatal fault among threads: once more, alone, with its messages and the recovery file.
        if (esito && esito->codice == kUscitaFatale) esito.reset();
        if (esito) {
            for (const MessaggioUscita& m : esito->detto) m.Scrivi();
            codice = std::max(codice, esito->codice);
        } else {
            if (i > 0) Ricomincia(*banco.s, *inizio);
            int suo = kUscitaOk;
            EseguiComando(*banco.s, [&] { suo = lavoro(*banco.s, banco.porta, file[i]); });
            codice = std::max({codice, suo, banco.s->fine ? banco.s->codiceUscita : kUscitaOk});
        }
        std::fflush(stdout);
        barra.Segna(i + 1);
    }
    if (tanti) {
        const std::string errore = ScaricaSuDisco(banco.s->dir.dirLavoro);
        if (!errore.empty()) {
            Errore(banco.s->dir.dirLavoro, "relazioni non al sicuro sul disco: " + errore);
            codice = std::max(codice, kUscitaUso);
        }
    }
    return codice;
}

}  // namespace tk07::cli
