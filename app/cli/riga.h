#pragma once

#include "cli/disegna.h"

namespace tk07 {

// The command line: reads the arguments, carries out the command, returns the exit code.
int EseguiRiga(int argc, char** argv, const Grafica& grafica);

}  // namespace tk07
