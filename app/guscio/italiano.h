#pragma once

#include <CLI/CLI.hpp>
#include <memory>

namespace tk07 {

// The library's own words in Italian.
inline void ParlaItaliano(CLI::App& app) {
    const auto f = std::make_shared<CLI::Formatter>();
    f->label("Usage", "Uso");
    f->label("OPTIONS", "OPZIONI");
    f->label("SUBCOMMAND", "COMANDO");
    f->label("SUBCOMMANDS", "COMANDI");
    f->label("Positionals", "Argomenti");
    f->label("REQUIRED", "(obbligatorio)");
    f->label("TEXT", "TESTO");
    f->label("Excludes", "esclude");
    f->column_width(34);
    app.formatter(f);
    app.set_help_flag("-h,--help", "Mostra questo aiuto ed esce");
    app.option_defaults()->group("Opzioni");
    app.get_help_ptr()->group("Opzioni");
}

}  // namespace tk07
