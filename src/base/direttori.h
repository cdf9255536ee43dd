#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/piattaforma.h"

namespace tk07 {

// The directory tree of the suite and the current job, fixed for the session once resolved.
struct Direttori {
    std::string dirRoot, dirImpostazioni, dirProgra, dirDriver, dirCustom, dirHelp, dirManuali,
        dirVideocorso, dirTemp, dirMacro2d;
    std::string dirLavoro;               // directory of the jobs, then the job's name
    std::string nomeLavoro;              // six characters
    std::vector<std::string> dirModuli;  // sibling modules, unused here
};

// How the program was started: its own directory, the command line, and a root given outright.
struct Avvio {
    std::string rigaComando;
    std::string dirProgramma;
    std::optional<std::string> diroot;
    std::optional<std::string> lavoro;     // the job's name, instead of the one in the settings
    std::optional<std::string> dirLavori;  // directory of the jobs, likewise
};

// Path of the marked field "|diroot=...|", trimmed and in lower case; empty when there is none.
std::string LeggiDiroot(std::string_view riga);
// Resolves root, settings and job. False after the box that tells what is wrong.
bool RisolviDirettori(const Avvio& avvio, Direttori& d, const Piattaforma& p);
void ImpostaDirettori(Direttori& d);
// 1 if one of the listed directories is missing (the work directory is not tested).
short DirettoriPresenti(const Direttori& d);
// The same directories, one a line.
std::string ElencoDirettori(const Direttori& d);

}  // namespace tk07
