#include "base/nomi_presenti.h"

#include <filesystem>
#include <map>
#include <set>
#include <unordered_map>

#ifdef __linux__
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#endif

#include "base/testo.h"

namespace tk07 {

namespace fs = std::filesystem;

namespace {

// Gives every name of the directory to `prendi`; false when it cannot be listed whole.
template <class Prendi>
bool Elenca(const std::string& direttorio, Prendi prendi) {
    std::error_code ec;
    for (fs::directory_iterator it(direttorio.empty() ? "." : direttorio, ec), fine;
         !ec && it != fine; it.increment(ec)) {
        prendi(it->path().filename().string());
    }
    return !ec;
}

}  // namespace

std::optional<std::string> NomePresente(const std::string& direttorio, std::string_view nome) {
    const std::string cercato = Minuscolo(nome);
    std::optional<std::string> trovato;
    Elenca(direttorio, [&](const std::string& presente) {
        if (Minuscolo(presente) == cercato && (!trovato || presente < *trovato)) trovato = presente;
    });
    return trovato;
}

#ifdef __linux__

namespace {

constexpr std::uint32_t kCambi = IN_CREATE | IN_MOVED_TO | IN_DELETE | IN_MOVED_FROM |
                                 IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

// File systems whose every change passes through this machine, and so is told. A drive of the
// network changes from elsewhere too.
bool SoloDiQui(const std::string& direttorio) {
    constexpr std::array<unsigned long, 7> kLocali = {0xEF53UL,     0x58465342UL, 0x9123683EUL,
                                                      0x01021994UL, 0xF2F52010UL, 0x2FC12FC1UL,
                                                      0x794C7630UL};  // ext2/3/4, XFS, Btrfs,
                                                                      // tmpfs, F2FS, ZFS, overlay
    struct statfs s {};
    if (statfs(direttorio.c_str(), &s) != 0) return false;
    const auto tipo = static_cast<unsigned long>(s.f_type) & 0xFFFFFFFFUL;
    for (const unsigned long locale : kLocali) {
        if (tipo == locale) return true;
    }
    return false;
}

struct Identita {
    dev_t disco = 0;
    ino_t numero = 0;
    bool operator==(const Identita&) const = default;
};

bool Chi(const std::string& direttorio, Identita& chi) {
    struct stat s {};
    if (stat(direttorio.c_str(), &s) != 0) return false;
    chi = {s.st_dev, s.st_ino};
    return true;
}

// One directory: its names by their lower case.
struct Elenco {
    int guardia = -1;  // the watch
    Identita chi;
    std::unordered_map<std::string, std::set<std::string>> nomi;
};

}  // namespace

struct NomiPresenti::Stato {
    int coda = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    std::map<std::string, Elenco> elenchi;  // by directory
    long volte = 0;

    ~Stato() {
        if (coda >= 0) close(coda);
    }

    void Dimentica(std::map<std::string, Elenco>::iterator it) {
        inotify_rm_watch(coda, it->second.guardia);
        elenchi.erase(it);
    }

    void Applica(int guardia, std::uint32_t cosa, const std::string& nome) {
        if ((cosa & IN_Q_OVERFLOW) != 0) {  // some changes were lost
            while (!elenchi.empty()) Dimentica(elenchi.begin());
            return;
        }
        for (auto it = elenchi.begin(); it != elenchi.end(); ++it) {
            if (it->second.guardia != guardia) continue;
            if ((cosa & (IN_CREATE | IN_MOVED_TO)) != 0) {
                it->second.nomi[Minuscolo(nome)].insert(nome);
            } else if ((cosa & (IN_DELETE | IN_MOVED_FROM)) != 0) {
                const auto voce = it->second.nomi.find(Minuscolo(nome));
                if (voce == it->second.nomi.end()) return;
                voce->second.erase(nome);
                if (voce->second.empty()) it->second.nomi.erase(voce);
            } else {  // the directory itself has gone, or its watch has
                Dimentica(it);
            }
            return;
        }
    }

    // Takes what the system has told so far; false when it cannot be had.
    bool Ascolta() {
        alignas(inotify_event) std::array<char, 16384> letti;
        for (;;) {
            const ssize_t n = read(coda, letti.data(), letti.size());
            if (n < 0 && errno == EINTR) continue;
            if (n <= 0) return n < 0 && errno == EAGAIN;
            for (const char* p = letti.data(); p < letti.data() + n;) {
                inotify_event e{};
                std::memcpy(&e, p, sizeof e);
                Applica(e.wd, e.mask, e.len > 0 ? p + sizeof e : "");
                p += sizeof e + e.len;
            }
        }
    }

    // The names of the directory as they are now; null when they cannot be kept.
    const Elenco* Di(const std::string& direttorio) {
        const std::string dove = direttorio.empty() ? "." : direttorio;
        Identita chi;
        if (coda < 0 || !Ascolta() || !Chi(dove, chi)) return nullptr;
        const auto it = elenchi.find(dove);
        // Another directory may stand in its place: one above it was renamed.
        if (it != elenchi.end() && it->second.chi == chi) return &it->second;
        if (it != elenchi.end()) Dimentica(it);
        if (!SoloDiQui(dove)) return nullptr;
        Elenco nuovo;
        nuovo.chi = chi;
        nuovo.guardia = inotify_add_watch(coda, dove.c_str(), kCambi);
        if (nuovo.guardia < 0) return nullptr;
        for (const auto& [altro, elenco] : elenchi) {
            if (elenco.guardia == nuovo.guardia) return nullptr;  // the same one by another path
        }
        // A change made meanwhile is in the listing, in what is told next, or in both.
        ++volte;
        const bool intero = Elenca(
            dove, [&](const std::string& nome) { nuovo.nomi[Minuscolo(nome)].insert(nome); });
        const auto messo = elenchi.emplace(dove, std::move(nuovo)).first;
        Identita ancora;
        if (!intero || !Chi(dove, ancora) || !(ancora == chi)) {
            Dimentica(messo);
            return nullptr;
        }
        if (!Ascolta()) return nullptr;
        const auto resta = elenchi.find(dove);
        return resta == elenchi.end() ? nullptr : &resta->second;
    }
};

std::optional<std::string> NomiPresenti::Nome(const std::string& direttorio,
                                              std::string_view nome) {
    const Elenco* elenco = stato_->Di(direttorio);
    if (elenco == nullptr) {
        ++stato_->volte;
        return NomePresente(direttorio, nome);
    }
    const auto voce = elenco->nomi.find(Minuscolo(nome));
    if (voce == elenco->nomi.end()) return std::nullopt;
    return *voce->second.begin();
}

#else

struct NomiPresenti::Stato {
    long volte = 0;
};

std::optional<std::string> NomiPresenti::Nome(const std::string& direttorio,
                                              std::string_view nome) {
    ++stato_->volte;
    return NomePresente(direttorio, nome);
}

#endif

NomiPresenti::NomiPresenti() : stato_(std::make_unique<Stato>()) {}
NomiPresenti::~NomiPresenti() = default;
long NomiPresenti::Elenchi() const { return stato_->volte; }

}  // namespace tk07
