#include "guscio/inizializza.h"

#include <filesystem>

#include "base/file_testo.h"

namespace tk07 {

namespace fs = std::filesystem;

std::string InizializzaAlbero(const std::string& origine, const std::string& destinazione) {
    std::error_code ec;
    const fs::path da(PercorsoPiattaforma(origine));
    const fs::path a =
        fs::weakly_canonical(fs::absolute(PercorsoMostrato(destinazione)), ec);  // as spelled
    if (!fs::is_directory(da / "custom", ec)) {
        return "librerie di partenza non trovate in " + da.string();
    }
    if (fs::exists(a, ec) && !fs::is_directory(a, ec)) return a.string() + " non è un direttorio";
    if (fs::exists(a, ec) && !fs::is_empty(a, ec)) return a.string() + " non è vuoto";
    for (const char* dir : {"impostazioni", "progra", "driver", "custom", "help", "manuali",
                            "videocorso", "temp", "macro_2d", "lavori"}) {
        fs::create_directories(a / dir, ec);
        if (ec) return (a / dir).string() + ": " + MessaggioSistema(ec.value());
    }
    const auto copia = [&](const fs::path& cosa) -> std::string {
        if (!fs::exists(da / cosa, ec)) return {};
        fs::copy(da / cosa, a / cosa,
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing, ec);
        return ec ? (a / cosa).string() + ": " + MessaggioSistema(ec.value()) : "";
    };
    for (const char* cosa : {"custom", "help", "progra/font.001", "lavori"}) {
        if (std::string e = copia(cosa); !e.empty()) return e;
    }
    // Reports made in the tree of origin stay there.
    for (fs::recursive_directory_iterator it(a / "lavori", ec), fine; !ec && it != fine;
         it.increment(ec)) {
        const std::string nome = it->path().filename().string();
        std::error_code altro;
        if (nome.rfind("Rel", 0) == 0 && it->path().extension() == ".txt")
            fs::remove(it->path(), altro);
    }
    std::string errore = ScriviFile((a / "impostazioni/dirlav").string(),
                                    (a / "lavori").string() + "\n", Codifica::windows1252);
    if (errore.empty()) {
        errore =
            ScriviFile((a / "impostazioni/lavoro").string(), "esempi\n", Codifica::windows1252);
    }
    return errore;
}

}  // namespace tk07
