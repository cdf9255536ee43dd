#pragma once

#include <optional>
#include <string>

#include "base/direttori.h"

namespace tk07 {

// Where the directory tree of a run comes from.
enum class Origine {
    data,       // told on the command line
    propria,    // the tree that the program stands in, one to work in
    ricordata,  // the user's own, remembered from an earlier run
    partenza,   // the installed tree, which others are made from: nothing is written in it
};

// Completes `avvio` with the root to use. The installed tree is the one without
// impostazioni/dirlav: it may lie anywhere, so that it holds no path of its own.
Origine TrovaAlbero(Avvio& avvio);

// Does `dir` hold a tree to work in?
bool AlberoDiLavoro(const std::string& dir);
// Does the running program stand in an installed tree?
bool ProgrammaInstallato(const Avvio& avvio);

// The file that remembers the user's tree, in the user's configuration directory (XDG); empty where
// there is none.
std::string FileAlberoRicordato();
// The remembered tree, when it is still there.
std::optional<std::string> AlberoRicordato();
// Makes a tree in `dir` from the one in `origine`, or takes the one that is there, and remembers
// it. Returns the empty text, or what went wrong.
std::string AdottaAlbero(const std::string& origine, const std::string& dir);

}  // namespace tk07
