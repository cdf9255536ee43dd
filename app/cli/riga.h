#pragma once

#include "guscio/disegna.h"

namespace tk07::cli {

// The command line: reads the arguments, carries out the command, returns the exit code.
int EseguiRiga(int argc, char** argv, const Grafica& grafica);

}  // namespace tk07::cli
