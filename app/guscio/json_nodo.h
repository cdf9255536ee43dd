#pragma once

#include <nlohmann/json.hpp>

#include "guscio/porta_cli.h"
#include "session/sessione.h"

namespace tk07 {

using Json = nlohmann::ordered_json;

// The joint with the joint file's key names: plates as lists of 2, ribs of 3, bolts of nBull, load
// sets of nSollAg.
Json JsonNodo(const Nodo& nodo);
// The object of `verifica --json`; `interrotta` when the run was stopped or could not be done. The
// findings row by row only where they are asked for.
Json JsonVerifica(const Sessione& s, const std::string& file,
                  const std::vector<MessaggioDato>& messaggi, bool conEsiti = false);
Json JsonSezioni(const LibreriaProfili& lib);
Json JsonMateriali(const Materiali& mat);
Json JsonOpzioni(const Opzioni& opz);
Json JsonUnita(const Unita& u);
// The scene: header, extrusions, sections with the vertices of each contour.
Json JsonScena(const Scena& s);
Json JsonDirettori(const Direttori& d);
Json JsonPannello(const Pannello& p);
// The drawing store: coordinates, line elements, arcs and texts with the names of its tables.
Json JsonDisegno(const Disegno& d);
// One line of text; characters that are no UTF-8 are replaced.
std::string SuRiga(const Json& j);

}  // namespace tk07
