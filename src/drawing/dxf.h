#pragma once

#include <string>
#include <string_view>

#include "base/piattaforma.h"
#include "drawing/archivio.h"
#include "drawing/font.h"

namespace tk07 {

struct OpzioniDxf {
    bool testoComeLinee = false;  // texts as strokes of the font
    bool monocromatico = false;   // every colour comes out as 7
    bool tipiLinea = false;       // with a table of the line types, for strict readers
};

// The drawing as DXF text: extent with a margin of 5 %, one layer, the entities. Lengths in drawing
// units, angles in degrees, numbers with a point; ASCII, other characters as \U+XXXX, "]" as the
// diameter sign %%c. The drawing is not cleaned before.
std::string ComponiDxf(Disegno& d, const FontTratti& font, const OpzioniDxf& opz);
// Writes it and tells the user unless `silenzioso`; false after a box, and a file that exists keeps
// its contents.
bool ScriviDxf(Disegno& d, std::string_view nomeFile, const FontTratti& font, const OpzioniDxf& opz,
               bool silenzioso, const Piattaforma& p);

}  // namespace tk07
