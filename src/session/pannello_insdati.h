#pragma once

#include <string>

#include "joint/nodo.h"

namespace tk07 {

// The field of the joint behind a geometry control (GeoPias, TextSald, TextQuota), nullptr for
// none.
const double* CampoGeometria(const Nodo& nodo, const std::string& base, int indice);
double* CampoGeometria(Nodo& nodo, const std::string& base, int indice);

// The table behind a load field (TxtSN...TxtMz); `tabella` nullptr for none.
struct AzioneSestetto {
    Tab1<double, 0, kMaxSestetto> Nodo::*tabella = nullptr;
    bool momento = false;
};
AzioneSestetto CampoAzione(const std::string& base);

struct Sessione;
struct NomeControllo;
// Takes the text of a field of the main panel into `nodo`, as leaving the field does: the session's
// joint, or a copy that shows what the text would do. The load set of a row is the one that the
// panel shows there. Returns why the text cannot be taken (work units that cannot convert it, a
// description that cannot stand in a joint file); nothing has changed then. Empty when it was.
std::string MettiCampo(const Sessione& s, const NomeControllo& campo, const std::string& testo,
                       Nodo& nodo);
// The unit converter on a load field: waits for it and puts its answer into the field.
void ChiamaConversione(Sessione& s, const NomeControllo& campo);

}  // namespace tk07
