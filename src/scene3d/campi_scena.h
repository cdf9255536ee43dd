#pragma once

#include <cstddef>

#include "scene3d/scena.h"

namespace tk07 {

// The one table of the scene file's fields, in the order of the file: the writer, the reader and
// every listing walk it. `V` takes each field with its key and indices:
//     v.Campo(key, value, indices...)
//     v.Quanti(key, vector, most, indices...)      a count: the reader sizes the vector by it
// `S` is Scena or const Scena.
template <class V, class S>
void PercorriScena(V& v, S& s) {
    v.Campo("visual_alfa", s.visual_alfa);
    v.Campo("visual_beta", s.visual_beta);
    v.Campo("visual_dist", s.visual_dist);
    v.Quanti("estrusi_numero", s.estrusi, kMaxEstrusi);
    for (std::size_t i = 0; i < s.estrusi.size(); ++i) {
        auto& e = s.estrusi[i];
        v.Campo("estrusi_tipo", e.estrusi_tipo, i);
        v.Campo("estrusi_punse1", e.estrusi_punse1, i);
        v.Campo("estrusi_punse2", e.estrusi_punse2, i);
        v.Campo("estrusi_orient", e.estrusi_orient, i);
        v.Campo("estrusi_colini", e.estrusi_colini, i);
        v.Campo("estrusi_colfin", e.estrusi_colfin, i);
        v.Campo("estrusi_collat", e.estrusi_collat, i);
        v.Campo("estrusi_descri", e.estrusi_descri, i);
        for (std::size_t j = 0; j < e.estrusi_coord1.size(); ++j) {
            v.Campo("estrusi_coord1", e.estrusi_coord1[j], i, j);
            v.Campo("estrusi_coord2", e.estrusi_coord2[j], i, j);
            v.Campo("estrusi_coord3", e.estrusi_coord3[j], i, j);
        }
        for (std::size_t j = 0; j < e.estrusi_rotaz1.size(); ++j) {
            v.Campo("estrusi_rotaz1", e.estrusi_rotaz1[j], i, j);
            v.Campo("estrusi_rotaz2", e.estrusi_rotaz2[j], i, j);
        }
    }
    v.Quanti("sezioni_numero", s.sezioni, kMaxSezioni);
    for (std::size_t i = 0; i < s.sezioni.size(); ++i) {
        auto& sez = s.sezioni[i];
        v.Campo("sezioni_descr", sez.sezioni_descr, i);
        v.Campo("sezioni_tipo", sez.sezioni_tipo, i);
        v.Quanti("sezioni_nroCon", sez.contorni, kMaxContorni, i);
        for (std::size_t j = 0; j < sez.contorni.size(); ++j) {
            v.Quanti("sezioni_nroVer", sez.contorni[j], kMaxVertici, i, j);
            for (std::size_t k = 0; k < sez.contorni[j].size(); ++k) {
                auto& vertice = sez.contorni[j][k];
                v.Campo("sezioni_ZVer", vertice.Z, i, j, k);
                v.Campo("sezioni_YVer", vertice.Y, i, j, k);
                v.Campo("sezioni_RVer", vertice.R, i, j, k);
            }
        }
    }
}

}  // namespace tk07
