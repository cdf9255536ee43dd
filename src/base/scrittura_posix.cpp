#ifndef _WIN32

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <random>

#include "base/scrittura.h"

namespace tk07 {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSegno = ".tk7tmp-";  // .tk7tmp-<process>-<random>
constexpr std::time_t kEtaResto = 3600;          // [s]
constexpr int kRimandi = 40;                     // links in a row
constexpr int kTentativi = 16;
constexpr std::size_t kPezzo = 1u << 20;  // [bytes]

class Descrittore {
  public:
    explicit Descrittore(int fd) : fd_(fd) {}
    ~Descrittore() { Chiudi(); }
    Descrittore(const Descrittore&) = delete;
    Descrittore& operator=(const Descrittore&) = delete;
    int operator*() const { return fd_; }
    int Chiudi() {
        const int fd = fd_;
        fd_ = -1;
        return fd >= 0 && close(fd) != 0 ? errno : 0;
    }

  private:
    int fd_;
};

std::string NomeProvvisorio() {
    static constexpr const char* kCifre = "0123456789abcdef";
    std::random_device caso;
    std::string n = std::string(kSegno) + std::to_string(getpid()) + "-";
    const std::uint64_t x = (static_cast<std::uint64_t>(caso()) << 32) | caso();
    for (int bit = 60; bit >= 0; bit -= 4) n += kCifre[(x >> bit) & 15U];
    return n;
}

// The process that a temporary name belongs to; 0 when the name is none.
pid_t ProcessoDi(std::string_view nome) {
    if (nome.substr(0, kSegno.size()) != kSegno) return 0;
    nome.remove_prefix(kSegno.size());
    pid_t pid = 0;
    const auto r = std::from_chars(nome.data(), nome.data() + nome.size(), pid);
    return r.ec == std::errc() && r.ptr != nome.data() + nome.size() && *r.ptr == '-' ? pid : 0;
}

// Follows the links to the file that they stand for, which need not be there. 0 or the error.
int Segui(fs::path& nome) {
    std::error_code ec;
    for (int i = 0; i < kRimandi; ++i) {
        if (!fs::is_symlink(nome, ec)) return 0;
        const fs::path dove = fs::read_symlink(nome, ec);
        if (ec) return ec.value();
        nome = nome.parent_path() / dove;  // an absolute one takes the place of both
    }
    return ELOOP;
}

int ScriviTutto(int fd, std::string_view dati) {
    while (!dati.empty()) {
        const ssize_t n = write(fd, dati.data(), std::min(dati.size(), kPezzo));
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return errno;
        dati.remove_prefix(static_cast<std::size_t>(n));
    }
    return 0;
}

// Some file systems (pipes of the system, network ones) have nothing to flush.
int Scarica(int fd) {
    while (fsync(fd) != 0) {
        if (errno == EINTR) continue;
        return errno == EINVAL || errno == ENOTSUP ? 0 : errno;
    }
    return 0;
}

// The new file belongs to whom the old one did, as far as this user may give it away; a group that
// is not taken over gets no rights either.
int PrendiDiritti(int fd, const struct stat& vecchio) {
    struct stat nuovo {};
    if (fstat(fd, &nuovo) != 0) return errno;
    mode_t modo = vecchio.st_mode & 07777;
    const bool stessi = nuovo.st_uid == vecchio.st_uid && nuovo.st_gid == vecchio.st_gid;
    if (!stessi && fchown(fd, vecchio.st_uid, vecchio.st_gid) != 0) {
        const bool gruppo = fchown(fd, static_cast<uid_t>(-1), vecchio.st_gid) == 0;
        modo &= gruppo ? 01777U : 01707U;
    }
    return fchmod(fd, modo) != 0 ? errno : 0;
}

// Fingerprint of the file; nothing when it is not there or cannot be read.
std::optional<std::uint64_t> ImprontaDi(const std::string& nome) {
    const Descrittore file(open(nome.c_str(), O_RDONLY | O_CLOEXEC));
    if (*file < 0) return std::nullopt;
    std::string bytes(kPezzo, '\0');
    std::size_t letti = 0;
    for (;;) {
        if (letti == bytes.size()) bytes.resize(2 * letti);
        const ssize_t n = read(*file, bytes.data() + letti, bytes.size() - letti);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        letti += static_cast<std::size_t>(n);
    }
    return Impronta(std::string_view(bytes).substr(0, letti));
}

}  // namespace

int SostituisciFile(const std::string& nome, std::string_view dati, bool suDisco,
                    const std::optional<std::uint64_t>& attesa) {
    fs::path dove(nome);
    if (const int e = Segui(dove); e != 0) return e;
    struct stat vecchio {};
    const bool esiste = lstat(dove.c_str(), &vecchio) == 0;
    if (!esiste && errno != ENOENT) return errno;
    if (esiste) {
        if (S_ISDIR(vecchio.st_mode)) return EISDIR;
        if (!S_ISREG(vecchio.st_mode)) return EINVAL;
        // Write protection holds for the superuser too.
        if ((vecchio.st_mode & S_IWUSR) == 0) return EACCES;
        if (faccessat(AT_FDCWD, dove.c_str(), W_OK, AT_EACCESS) != 0) return errno;
    }
    const std::string dir = dove.has_parent_path() ? dove.parent_path().string() : ".";
    // Held open: the names below are of this directory, whatever becomes of its path.
    Descrittore cartella(open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const int base = *cartella >= 0 ? *cartella : AT_FDCWD;
    if (*cartella < 0 && errno != EACCES) return errno;
    // A directory that may be entered but not listed is reached by its path.
    const auto qui = [&](const std::string& n) { return base >= 0 ? n : dir + "/" + n; };

    std::string provvisorio;
    int fd = -1;
    for (int i = 0; fd < 0 && i < kTentativi; ++i) {
        provvisorio = NomeProvvisorio();
        fd = openat(base, qui(provvisorio).c_str(),
                    O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, esiste ? 0600 : 0666);
        if (fd < 0 && errno != EEXIST) return errno;
    }
    if (fd < 0) return EEXIST;
    Descrittore file(fd);
    int errore = ScriviTutto(fd, dati);
    if (errore == 0 && esiste) errore = PrendiDiritti(fd, vecchio);
    if (errore == 0 && suDisco) errore = Scarica(fd);
    const int chiusura = file.Chiudi();
    if (errore == 0) errore = chiusura;
    const std::string finale = dove.filename().string();
    // One replacement at a time in a directory: held for the look and the rename alone. File
    // systems that know no locks do without.
    if (errore == 0 && *cartella >= 0) flock(*cartella, LOCK_EX);
    if (errore == 0 && attesa) {
        const auto adesso = ImprontaDi(dove.string());
        if (adesso && *adesso != *attesa) errore = kFileCambiato;
    }
    if (errore == 0 && renameat(base, qui(provvisorio).c_str(), base, qui(finale).c_str()) != 0) {
        errore = errno;
    }
    if (*cartella >= 0) flock(*cartella, LOCK_UN);
    if (errore != 0) {
        unlinkat(base, qui(provvisorio).c_str(), 0);
        return errore;
    }
    if (suDisco && *cartella >= 0) Scarica(*cartella);  // the file is in its place either way
    if (suDisco) TogliResti(dir);
    return 0;
}

void TogliResti(const std::string& direttorio) {
    DIR* d = opendir(direttorio.c_str());
    if (d == nullptr) return;
    while (const dirent* e = readdir(d)) {
        const pid_t pid = ProcessoDi(e->d_name);
        if (pid <= 0 || kill(pid, 0) == 0 || errno != ESRCH) continue;
        struct stat st {};
        if (fstatat(dirfd(d), e->d_name, &st, AT_SYMLINK_NOFOLLOW) != 0) continue;
        if (!S_ISREG(st.st_mode) || std::time(nullptr) - st.st_mtime < kEtaResto) continue;
        unlinkat(dirfd(d), e->d_name, 0);
    }
    closedir(d);
}

DirettorioPrivato::DirettorioPrivato() {
    std::error_code ec;
    const fs::path temp = fs::temp_directory_path(ec);
    if (ec) {
        errore_ = ec.value();
        return;
    }
    std::string modello = (temp / "tk07-XXXXXX").string();
    if (mkdtemp(modello.data()) == nullptr) {
        errore_ = errno;
        return;
    }
    percorso_ = modello;
}

DirettorioPrivato::~DirettorioPrivato() {
    std::error_code ec;
    if (!percorso_.empty()) fs::remove_all(percorso_, ec);
}

}  // namespace tk07

#endif
