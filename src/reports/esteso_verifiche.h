#pragma once

#include <string>

#include "reports/esteso.h"

namespace tk07 {

// Numbers as the text report rounds them, in the user's units.
struct CifreRel {
    const Unita& u;
    std::string Forza(double daN) const;
    std::string Momento(double daNcm) const;
    std::string Tensione(double daNcm2) const;
    std::string UForza() const, UMomento() const, UTensione() const;  // " daN"
    std::string ForzaU(double x) const { return Forza(x) + UForza(); }
    std::string MomentoU(double x) const { return Momento(x) + UMomento(); }
    std::string TensioneU(double x) const { return Tensione(x) + UTensione(); }
};
// x rounded to n decimals, all of them written; "-0" never.
std::string TestoFisso(double x, int n);
// x to n significant digits.
std::string TestoCifre(double x, int n);
// Length: one decimal at most, none when whole.
std::string TestoMm(double x);
// Unit's name with its signs: "daN*cm" and "daN/cm2" get a dot and a raised 2.
std::string UnitaMostrata(const std::string& nome);

// What the chapters of a report read.
struct ContestoRel {
    const Nodo& n;
    const Opzioni& opz;
    const Risultati& ris;
    const Esiti& esiti;
    CifreRel cifre;
    bool Slu() const { return n.MetodoVerifica() == Metodo::SLU; }
};

// Name of a load set on one line, cut where it would fill a page; "Sestetto 3: name".
std::string NomeAzioni(const Nodo& n, int s);
std::string NomeSestetto(const Nodo& n, int s);
// Demand and limit with their unit.
std::string ValoreControllo(const ContestoRel& c, const Riscontro& e, double x);
// The check with its numbers.
VerificaRel SpiegaControllo(const ContestoRel& c, const Riscontro& e);
// The text report's tables of a load set.
TabellaRel TabellaBulloni(const ContestoRel& c, int s);
TabellaRel TabellaAmmissibili(const ContestoRel& c, int s);  // TA only
TabellaRel TabellaPiastre(const ContestoRel& c, int s);
TabellaRel TabellaSaldature(const ContestoRel& c, int s);

}  // namespace tk07
