#pragma once

#include <functional>
#include <string>
#include <vector>

#include "guscio/banco.h"

namespace tk07::cli {

// Works on one file in a session that stands as after the start-up; returns an exit code. What it
// says goes through the port. With several threads it is called by all of them at once, each with a
// session and a port of its own.
using LavoroSuFile = std::function<int(Sessione&, PortaCli&, const std::string& file)>;

struct ModoLotto {
    bool fermati = false;  // as in PortaCli
    bool apri = false;
    int fili = 1;
    std::string testata;  // printed before the first file
};

// Does the work on every file. What is said stands in the order of the files, whatever the number
// of threads; the exit code is the largest. A fatal fault ends its own file alone. Of more files
// than one the reports go to the disk together at the end.
int PerOgniFile(const Avvio& avvio, const std::vector<std::string>& file,
                const LavoroSuFile& lavoro, const ModoLotto& modo = {});

}  // namespace tk07::cli
