#include "modelimport/risultati_analisi.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <optional>
#include <type_traits>
#include <vector>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "joint/tabella_carichi.h"
#include "modelimport/liste.h"
#include "modelimport/struttura.h"

namespace tk07 {

namespace {

constexpr std::int64_t kRecord = 56;  // bytes
using Record = std::array<char, kRecord>;

// Little-endian whole number at `inizio`.
template <class T>
T Intero(const char* inizio) {
    std::make_unsigned_t<T> x = 0;
    for (std::size_t k = 0; k < sizeof(T); ++k) {
        x = static_cast<std::make_unsigned_t<T>>(
            x | (std::make_unsigned_t<T>{static_cast<unsigned char>(inizio[k])} << (8 * k)));
    }
    return static_cast<T>(x);
}

// The six actions of a record.
struct Azioni {
    double assiale = 0.0, taglio1 = 0.0, taglio2 = 0.0, torsione = 0.0, momento1 = 0.0,
           momento2 = 0.0;
};

// A result file: never more of it than one stretch is in memory, whatever its size and counts.
// Records go straight to their values, so that no scratch file is left behind in the work directory
// when the program is stopped half way. Everything is read, nothing mapped: a file that is cut
// meanwhile ends the reading in an error.
class FileRisultati {
  public:
    // False when it cannot be opened, or the header asks for more than the file holds.
    bool Apri(const std::string& percorso) {
        if (!EsisteFile(percorso)) return false;
        f_.rdbuf()->pubsetbuf(nullptr, 0);  // whole stretches at once
        f_.open(PercorsoPiattaforma(percorso), std::ios::binary);
        f_.seekg(0, std::ios::end);
        const std::int64_t lunghezza = f_.tellg();
        Record r;
        if (!f_ || !Leggi(0, r)) return false;
        n_ = Intero<std::int16_t>(r.data());
        stazioni_ = Intero<std::int32_t>(r.data() + 4);
        sestetti_ = Intero<std::int32_t>(r.data() + 8);
        if (n_ < 1 || stazioni_ < 1 || sestetti_ < 1) return false;
        // n A B <= what follows the header, without a product that could overflow
        const std::int64_t presenti = lunghezza / kRecord - 1;
        return n_ * stazioni_ <= presenti / sestetti_;
    }

    std::int64_t Sestetti() const { return sestetti_; }

    // Gives block and member number of every block to `prendi`, in the order of the file. Short
    // blocks are read together, of long ones their first record alone.
    template <class Prendi>
    bool Aste(Prendi prendi) {
        constexpr std::int64_t kLungo = 4096, kTratto = 1 << 18;  // bytes
        const std::int64_t passo = stazioni_ * sestetti_ * kRecord;
        const std::int64_t insieme = passo > kLungo ? 1 : kTratto / passo;
        std::vector<char> tratto;
        for (std::int64_t b = 0; b < n_; b += insieme) {
            const std::int64_t quanti = std::min(insieme, n_ - b);
            tratto.resize(static_cast<std::size_t>((quanti - 1) * passo + kRecord));
            if (!Leggi(kRecord + b * passo, tratto)) return false;
            const char* inizio = tratto.data();
            for (std::int64_t k = 0; k < quanti; ++k, inizio += passo) {
                prendi(b + k, Intero<std::int16_t>(inizio));
            }
        }
        return true;
    }

    // Six-set s (from 1) at end 1 or 2; nothing when it is not in the file or has no finite number.
    std::optional<Azioni> Sestetto(std::int64_t blocco, short estremo, std::int64_t s) {
        const std::int64_t base =
            1 + blocco * stazioni_ * sestetti_ + (estremo == 2 ? sestetti_ * (stazioni_ - 1) : 0);
        Record r;
        if (!Leggi((base + s - 1) * kRecord, r)) return std::nullopt;
        Azioni a;
        const char* valore = r.data() + 8;
        for (double* x :
             {&a.assiale, &a.taglio1, &a.taglio2, &a.torsione, &a.momento1, &a.momento2}) {
            *x = std::bit_cast<double>(Intero<std::int64_t>(valore));
            if (!std::isfinite(*x)) return std::nullopt;
            valore += 8;
        }
        return a;
    }

  private:
    // Fills `dove` from byte `da` on; false when the file ends before.
    template <class Byte>
    bool Leggi(std::int64_t da, Byte& dove) {
        f_.clear();
        f_.seekg(da);
        return static_cast<bool>(f_.read(dove.data(), static_cast<std::streamsize>(dove.size())));
    }

    std::ifstream f_;
    std::int64_t n_ = 0, stazioni_ = 0, sestetti_ = 0;
};

// The lists, parsed.
struct Liste {
    std::vector<short> nodi, aste, casi, condizioni, sestetti;
};

bool LeggiListe(const RichiestaImport& r, Liste& l, const Piattaforma& p) {
    constexpr const char* kErrata = "Inserimento dati errato";
    constexpr const char* kTroppe = "Numero di aste o di nodi eccessivo";
    constexpr const char* kTroppi = "Errore: numero di combinazioni eccessivo";
    struct Campo {
        const std::string& testo;
        std::vector<short>& voci;
        const char* seEccessiva;
    };
    for (const Campo& c :
         {Campo{r.nodi, l.nodi, kTroppe}, Campo{r.aste, l.aste, kTroppe},
          Campo{r.casi, l.casi, kTroppi}, Campo{r.condizioni, l.condizioni, kTroppi},
          Campo{r.sestetti, l.sestetti, kErrata}}) {
        const EsitoLista esito = EsaminaLista(c.testo, c.voci);
        if (esito == EsitoLista::buona) continue;
        MostraErrore(p, esito == EsitoLista::eccessiva ? c.seEccessiva : kErrata);
        return false;
    }
    return true;
}

// Rounded to n decimals; adding 0 turns -0 into 0.
double Tondo(double x, int n) { return Arrotonda(x, n) + 0.0; }

// Block of each member that is looked for, by the 16 bits of its number; the first block until a
// file has shown the member.
class Blocchi {
  public:
    explicit Blocchi(const std::vector<short>& aste) : blocco_(kNumeri, kNonCercata) {
        for (const short numero : aste) blocco_[Posto(numero)] = 0;
    }
    void Vista(short numero, std::int64_t blocco) {
        std::int32_t& b = blocco_[Posto(numero)];
        if (b != kNonCercata) b = static_cast<std::int32_t>(blocco);
    }
    std::int64_t operator[](short numero) const { return blocco_[Posto(numero)]; }

  private:
    static constexpr std::size_t kNumeri = 1u << 16;
    static constexpr std::int32_t kNonCercata = -1;
    static std::size_t Posto(short numero) { return static_cast<std::uint16_t>(numero); }
    std::vector<std::int32_t> blocco_;  // a file has fewer than 2^15 blocks
};

// One import under way.
struct Importazione {
    const Liste& liste;
    const AsteImport& aste;
    ModoImport modo;
    Nodo& nodo;
    const Piattaforma& p;
    Blocchi blocchi;  // kept between files
};

EsitoImport Fallito(const Importazione& i, const std::string& testo) {
    MostraErrore(i.p, testo);
    return EsitoImport::fallito;
}

EsitoImport TroppeSollecitazioni(const Importazione& i) {
    i.nodo.nSollAg = 0;
    return Fallito(i, "Errore: numero di sollecitazioni eccessivo");
}

// Puts one set in the table. The signs turn the analysis' axes at end 2 into the joint's.
void Aggiungi(Importazione& i, const Azioni& a, short estremo, const std::string& nome) {
    const double verso = estremo == 2 ? -1.0 : 1.0;
    const double N = Tondo(a.assiale, 1), Tz = Tondo(a.taglio2, 1),
                 Ty = Tondo(verso * a.taglio1, 1);
    if (i.modo == ModoImport::massimiMinimi) {
        // The extremes are those of the analysis: moments keep its signs, to a whole daN cm. What
        // the import tells of each action says so.
        VagliaMaxMinSoll(i.nodo, N, Tz, Ty, Tondo(a.torsione, 0), Tondo(a.momento1, 0),
                         Tondo(a.momento2, 0), nome);
        return;
    }
    const int k = i.nodo.nSollAg++;
    AssegnaSestetto(i.nodo, k, N, Tz, Ty, Tondo(-a.torsione, 1), Tondo(verso * a.momento1, 1),
                    Tondo(a.momento2, 1), nome);
    i.nodo.CasoCarico(k) = 0;
}

// The sets of member j of the list from an open file.
EsitoImport ImportaAsta(Importazione& i, FileRisultati& f, std::size_t j,
                        const std::string& carico) {
    const short numero = i.aste.asteLista[j];
    if (numero < 1) return EsitoImport::bene;
    const std::string nome =
        carico + " As. " + std::to_string(numero) + " Nd. " +
        std::to_string(i.nodo.numNodi > 0 ? i.nodo.NomeNodi(i.aste.asteNodo[j]) : 0);
    for (std::int64_t s = 1; s <= f.Sestetti(); ++s) {
        std::optional<Azioni> letto;  // read once, however often the list has it
        for (const short voce : i.liste.sestetti) {
            if (voce > 0 && voce != s) continue;
            // A list that repeats its entries can pass the limit tried before the file.
            if (i.modo == ModoImport::tutti && i.nodo.nSollAg >= kMaxSestetto) {
                return TroppeSollecitazioni(i);
            }
            if (!letto) letto = f.Sestetto(i.blocchi[numero], i.aste.asteEstremo[j], s);
            if (!letto) {
                return Fallito(i, "Impossibile leggere le sollecitazioni nei nodi precisati");
            }
            Aggiungi(i, *letto, i.aste.asteEstremo[j], nome);
        }
    }
    return EsitoImport::bene;
}

EsitoImport ImportaFile(Importazione& i, std::string_view dirLavoro, TipoCarico tipo, int numero) {
    const std::string testo = std::to_string(numero);
    const bool caso = tipo == TipoCarico::caso;
    const std::string illeggibile = std::string("Impossibile leggere le sollecitazioni ") +
                                    (caso ? "del caso di carico " : "della condizione di carico ") +
                                    testo;
    FileRisultati f;
    if (!f.Apri(NomeFileRisultati(dirLavoro, tipo, numero))) return Fallito(i, illeggibile);
    if (!f.Aste([&](std::int64_t b, short asta) { i.blocchi.Vista(asta, b); })) {
        return Fallito(i, illeggibile);
    }
    const auto quante = static_cast<std::int64_t>(i.aste.asteLista.size());
    if (i.nodo.nSollAg + f.Sestetti() * quante > kMaxSestetto) return TroppeSollecitazioni(i);
    for (std::size_t j = 0; j < i.aste.asteLista.size(); ++j) {
        const EsitoImport esito = ImportaAsta(i, f, j, (caso ? "Caso " : "Cond ") + testo);
        if (esito != EsitoImport::bene) return esito;
    }
    return EsitoImport::bene;
}

}  // namespace

std::string NomeFileRisultati(std::string_view dirLavoro, TipoCarico tipo, int numero) {
    char cifre[16];
    std::snprintf(cifre, sizeof cifre, "%03d", numero);
    return std::string(dirLavoro) + "\\aste" + (tipo == TipoCarico::caso ? "c" : "_") +
           std::string(cifre).substr(0, 3) + ".bin";
}

EsitoImport ImportaSollecitazioni(std::string_view dirLavoro, const RichiestaImport& richiesta,
                                  Nodo& nodo, const Piattaforma& p) {
    Liste liste;
    if (!LeggiListe(richiesta, liste, p)) return EsitoImport::fallito;
    nodo.numNodi = static_cast<short>(liste.nodi.size());
    for (std::size_t k = 0; k < liste.nodi.size(); ++k) {
        nodo.NomeNodi(static_cast<long>(k) + 1) = liste.nodi[k];
    }
    AsteImport aste;
    aste.asteLista = liste.aste;
    const EsitoStr letta = LeggiStruttura(dirLavoro, nodo, aste, StrVecchia::termina, p);
    if (letta == EsitoStr::fineProgramma) return EsitoImport::fineProgramma;
    if (letta == EsitoStr::errore) return EsitoImport::fallito;

    if (richiesta.modo == ModoImport::massimiMinimi) PreparaMaxMinSoll(nodo);
    Importazione i{liste, aste, richiesta.modo, nodo, p, Blocchi(liste.aste)};
    const auto totale = static_cast<long>(liste.casi.size() + liste.condizioni.size());
    long fatti = 0;
    for (const TipoCarico tipo : {TipoCarico::caso, TipoCarico::condizione}) {
        const bool caso = tipo == TipoCarico::caso;
        for (const short numero : caso ? liste.casi : liste.condizioni) {
            const std::string nome = (caso ? "Caso " : "Cond ") + std::to_string(numero);
            if (!p.avanzamento(fatti++, totale, nome)) return EsitoImport::interrotto;
            const EsitoImport esito = ImportaFile(i, dirLavoro, tipo, numero);
            if (esito != EsitoImport::bene) return esito;
        }
    }
    for (int k = 0; k < nodo.nSollAg; ++k) nodo.CasoCarico(k) = 0;
    p.avanzamento(totale, totale, "");
    return EsitoImport::bene;
}

AstaAssente CercaAstaAssente(std::string_view dirLavoro, const RichiestaImport& richiesta) {
    Liste liste;
    if (!LeggiListe(richiesta, liste, PiattaformaMuta())) return {};
    for (const TipoCarico tipo : {TipoCarico::caso, TipoCarico::condizione}) {
        for (const short numero : tipo == TipoCarico::caso ? liste.casi : liste.condizioni) {
            FileRisultati f;
            if (!f.Apri(NomeFileRisultati(dirLavoro, tipo, numero))) return {};
            std::vector<bool> presenti(1u << 16);  // by the 16 bits of the number
            f.Aste([&](std::int64_t, short asta) {
                presenti[static_cast<std::uint16_t>(asta)] = true;
            });
            for (const short asta : liste.aste) {
                if (asta >= 1 && !presenti[static_cast<std::uint16_t>(asta)])
                    return {asta, tipo, numero};
            }
        }
    }
    return {};
}

}  // namespace tk07
