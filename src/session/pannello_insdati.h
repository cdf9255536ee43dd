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
// The unit converter on a load field: waits for it and puts its answer into the field.
void ChiamaConversione(Sessione& s, const NomeControllo& campo);

}  // namespace tk07
