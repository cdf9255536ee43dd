#include "base/file_testo.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

#ifdef __linux__
#include <fcntl.h>
#include <unistd.h>
#endif

#include "base/nomi_presenti.h"
#include "base/scrittura.h"
#include "base/testo.h"

namespace tk07 {

namespace fs = std::filesystem;

namespace {

// Windows-1252, bytes 80..9F; 0 where the code page has no character (kept as the control code).
constexpr std::array<std::uint16_t, 32> kAlti = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AggiungiUtf8(std::string& r, std::uint32_t c) {
    if (c < 0x80) {
        r += static_cast<char>(c);
    } else if (c < 0x800) {
        r += static_cast<char>(0xC0 | (c >> 6));
        r += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        r += static_cast<char>(0xE0 | (c >> 12));
        r += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        r += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// Decodes one code point at i and moves i behind it; 0xFFFFFFFF when the bytes are no UTF-8.
std::uint32_t Decodifica(std::string_view t, std::size_t& i) {
    const auto b = [&](std::size_t k) {
        return k < t.size() ? static_cast<std::uint32_t>(static_cast<unsigned char>(t[k])) : 0u;
    };
    const std::uint32_t c = b(i);
    std::size_t n = 0;
    std::uint32_t v = 0, minimo = 0;
    if (c < 0x80) {
        ++i;
        return c;
    }
    if (c >= 0xC2 && c <= 0xDF) {
        n = 1, v = c & 0x1F, minimo = 0x80;
    } else if (c >= 0xE0 && c <= 0xEF) {
        n = 2, v = c & 0x0F, minimo = 0x800;
    } else if (c >= 0xF0 && c <= 0xF4) {
        n = 3, v = c & 0x07, minimo = 0x10000;
    } else {
        return 0xFFFFFFFFu;
    }
    for (std::size_t k = 1; k <= n; ++k) {
        if ((b(i + k) & 0xC0) != 0x80) return 0xFFFFFFFFu;
        v = (v << 6) | (b(i + k) & 0x3F);
    }
    if (v < minimo || v > 0x10FFFF || (v >= 0xD800 && v <= 0xDFFF)) return 0xFFFFFFFFu;
    i += n + 1;
    return v;
}

}  // namespace

std::string MessaggioSistema(int errore) {
    struct Voce {
        int numero;
        const char* testo;
    };
    static constexpr Voce kVoci[] = {
        {ENOENT, "file o direttorio inesistente"},
        {EACCES, "permesso negato"},
        {EPERM, "permesso negato"},
        {EISDIR, "è un direttorio"},
        {ENOTDIR, "una parte del percorso non è un direttorio"},
        {ENOSPC, "spazio su disco esaurito"},
        {EROFS, "disco di sola lettura"},
        {EFBIG, "file troppo grande"},
        {EEXIST, "esiste già"},
        {ENOTEMPTY, "il direttorio non è vuoto"},
        {ENAMETOOLONG, "nome troppo lungo"},
        {ELOOP, "troppi rimandi uno dopo l'altro"},
        {EINVAL, "non è un file che si possa scrivere"},
        {EIO, "errore del disco"},
        {EBUSY, "file in uso"},
        {ETXTBSY, "programma in esecuzione"},
        {EXDEV, "il percorso passa da un disco all'altro"},
        {EMLINK, "troppi rimandi allo stesso file"},
        {EMFILE, "troppi file aperti"},
        {ENFILE, "troppi file aperti nel sistema"},
        {ENOMEM, "memoria esaurita"},
        {ENODEV, "il disco non risponde"},
        {ENXIO, "il disco non risponde"},
        {ETIMEDOUT, "il disco di rete non risponde"},
        {ENOTSUP, "operazione che il disco non conosce"},
        {EPIPE, "chi leggeva ha smesso"},
#ifndef _WIN32
        {EDQUOT, "spazio concesso all'utente esaurito"},
        {ESTALE, "il direttorio di rete non c'è più"},
#endif
    };
    if (errore == kFileCambiato) return "il file è cambiato su disco da quando è stato letto";
    for (const Voce& v : kVoci) {
        if (v.numero == errore) return v.testo;
    }
    return "errore di sistema numero " + std::to_string(errore);
}

std::string PercorsoMostrato(std::string_view percorso) {
    std::string r(percorso);
#ifdef _WIN32
    std::replace(r.begin(), r.end(), '/', '\\');
#else
    std::replace(r.begin(), r.end(), '\\', '/');
#endif
    return r;
}

std::string PercorsoPiattaforma(std::string_view percorso, NomiPresenti* nomi) {
    std::string t(percorso);
    std::replace(t.begin(), t.end(), '\\', '/');
    const fs::path intero(t);
    std::error_code ec;
    if (fs::exists(intero, ec)) return intero.string();
    fs::path r;
    bool esiste = true;
    for (const fs::path& parte : intero) {
        const fs::path prova = r / parte;
        if (!esiste || parte.empty() || fs::exists(prova, ec)) {
            r = prova;
            continue;
        }
        const auto presente = nomi != nullptr ? nomi->Nome(r.string(), parte.string())
                                              : NomePresente(r.string(), parte.string());
        if (presente) {
            r /= *presente;
        } else {
            esiste = false;
            r = prova;
        }
    }
    return r.string();
}

bool EsisteDirettorio(std::string_view percorso) {
    std::error_code ec;
    return !percorso.empty() && fs::is_directory(PercorsoPiattaforma(percorso), ec);
}

bool EsisteFile(std::string_view percorso) {
    std::error_code ec;
    return !percorso.empty() && fs::is_regular_file(PercorsoPiattaforma(percorso), ec);
}

bool EliminaFile(std::string_view percorso) {
    std::error_code ec;
    fs::remove(PercorsoPiattaforma(percorso), ec);
    return !ec;
}

std::string ScaricaSuDisco([[maybe_unused]] std::string_view direttorio) {
#ifdef __linux__
    const int d = open(PercorsoPiattaforma(direttorio).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (d < 0) return MessaggioSistema(errno);
    const int errore = syncfs(d) == 0 ? 0 : errno;
    close(d);
    if (errore != 0) return MessaggioSistema(errore);
#endif
    return {};
}

std::string NomeSenzaDirettorio(std::string_view percorso) {
    const std::size_t p = percorso.find_last_of("\\/");
    return std::string(p == std::string_view::npos ? percorso : percorso.substr(p + 1));
}

std::string NomeBase(std::string_view percorso) {
    std::string n = NomeSenzaDirettorio(percorso);
    const std::size_t p = n.rfind('.');
    return p == std::string::npos ? n : n.substr(0, p);
}

bool Utf8Valido(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size();) {
        if (Decodifica(bytes, i) == 0xFFFFFFFFu) return false;
    }
    return true;
}

std::string DaWindows1252(std::string_view bytes) {
    std::string r;
    r.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const auto u = static_cast<unsigned char>(c);
        const bool alto = u >= 0x80 && u <= 0x9F && kAlti[u - 0x80u] != 0;
        AggiungiUtf8(r, alto ? kAlti[u - 0x80u] : u);
    }
    return r;
}

std::string DaBytes(std::string_view bytes) {
    if (Utf8Valido(bytes)) {
        if (bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
        return std::string(bytes);
    }
    return DaWindows1252(bytes);
}

bool AWindows1252(std::string_view testo, std::string& uscita) {
    uscita.clear();
    uscita.reserve(testo.size());
    for (std::size_t i = 0; i < testo.size();) {
        const std::uint32_t c = Decodifica(testo, i);
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
            uscita += static_cast<char>(c);
            continue;
        }
        const auto* p = std::find(kAlti.begin(), kAlti.end(), c);
        if (p != kAlti.end()) {
            uscita += static_cast<char>(0x80 + (p - kAlti.begin()));
        } else if (c >= 0x80 && c <= 0x9F && kAlti[c - 0x80u] == 0) {
            uscita += static_cast<char>(c);
        } else {
            return false;
        }
    }
    return true;
}

bool LeggiBytes(std::string_view percorso, std::string& bytes, std::string& errore) {
    const std::string nome = PercorsoPiattaforma(percorso);
    std::error_code ec;
    const fs::file_status stato = fs::status(nome, ec);
    if (fs::is_directory(stato)) {
        errore = "è un direttorio";
        return false;
    }
    if (fs::exists(stato) && !fs::is_regular_file(stato)) {
        errore = "non è un file";  // a pipe or a device would be waited for
        return false;
    }
    std::FILE* f = std::fopen(nome.c_str(), "rb");
    if (f == nullptr) {
        errore = MessaggioSistema(errno);
        return false;
    }
    bytes.clear();
    std::array<char, 65536> pezzo;
    std::size_t n = 0;
    while ((n = std::fread(pezzo.data(), 1, pezzo.size(), f)) > 0) {
        bytes.append(pezzo.data(), n);
        if (bytes.size() > kMassimoFile) break;
    }
    const bool guasto = std::ferror(f) != 0;
    std::fclose(f);
    if (bytes.size() > kMassimoFile) {
        errore = "file troppo grande (oltre " + std::to_string(kMassimoFile >> 20) + " MB)";
        return false;
    }
    if (guasto) errore = "errore di lettura";
    return !guasto;
}

FileLetto LeggiRighe(std::string_view percorso) {
    FileLetto r;
    std::string bytes;
    if (!LeggiBytes(percorso, bytes, r.errore)) return r;
    const std::string testo = DaBytes(bytes);
    std::size_t i = 0;
    while (i < testo.size()) {
        std::size_t p = testo.find('\n', i);
        if (p == std::string::npos) p = testo.size();
        std::size_t fine = p;
        if (fine > i && testo[fine - 1] == '\r') --fine;
        r.righe.emplace_back(testo, i, fine - i);
        i = p + 1;
    }
    r.riuscito = true;
    return r;
}

std::uint64_t Impronta(std::string_view bytes) {
    std::uint64_t h = 0xcbf29ce484222325u;
    for (const char c : bytes) h = (h ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    return h;
}

std::optional<std::uint64_t> ImprontaFile(std::string_view percorso) {
    std::string bytes, errore;
    if (!LeggiBytes(percorso, bytes, errore)) return std::nullopt;
    return Impronta(bytes);
}

bool StessoFile(std::string_view a, std::string_view b) {
    std::error_code ec;
    return fs::equivalent(PercorsoPiattaforma(a), PercorsoPiattaforma(b), ec);
}

std::string ScriviFile(std::string_view percorso, std::string_view testo, Codifica codifica,
                       Tenuta tenuta, const std::optional<std::uint64_t>& attesa,
                       NomiPresenti* nomi) {
    std::string bytes;
    std::string_view dati = testo;
    // Bytes that would be read back as another text (they happen to be valid UTF-8) are no use
    // either.
    if (codifica == Codifica::windows1252 && AWindows1252(testo, bytes) &&
        DaBytes(bytes) == testo) {
        dati = bytes;
    }
    const int errore = SostituisciFile(PercorsoPiattaforma(percorso, nomi), dati,
                                       tenuta == Tenuta::suDisco, attesa);
    return errore == 0 ? std::string() : MessaggioSistema(errore);
}

}  // namespace tk07
