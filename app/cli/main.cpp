#include "cli/riga.h"

// Without graphic toolkits: starts in a few milliseconds. Commands that want them are handed over.
int main(int argc, char** argv) { return tk07::cli::EseguiRiga(argc, argv, {}); }
