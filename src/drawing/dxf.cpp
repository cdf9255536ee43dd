#include "drawing/dxf.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "base/aritmetica.h"
#include "base/file_testo.h"
#include "base/testo.h"
#include "textnum/formatta.h"

namespace tk07 {

namespace {

const char* NomeTipoLinea(short tipo) {
    switch (tipo) {
        case 1:
            return "CENTER";
        case 2:
            return "DASHED";
        case 3:
            return "DIVIDE";
        case 4:
            return "DASHED2";
        default:
            return "CONTINUOUS";
    }
}

int ColoreDxf(short indice) {
    switch (indice) {
        case 0:
            return 18;
        case 2:
            return 5;
        case 3:
            return 1;
        case 4:
            return 3;
        case 5:
            return 2;
        case 6:
            return 8;
        case 7:
            return 6;
        default:
            return 7;
    }
}

// ASCII; every other character by its code point. The input is UTF-8.
std::string InAscii(std::string_view testo) {
    std::string r;
    for (std::size_t i = 0; i < testo.size();) {
        const auto c = static_cast<unsigned char>(testo[i++]);
        if (c < 0x80) {
            r += static_cast<char>(c);
            continue;
        }
        std::uint32_t v = c >= 0xF0 ? c & 0x07u : c >= 0xE0 ? c & 0x0Fu : c & 0x1Fu;
        while (i < testo.size() && (static_cast<unsigned char>(testo[i]) & 0xC0u) == 0x80u) {
            v = v << 6 | (static_cast<unsigned char>(testo[i++]) & 0x3Fu);
        }
        std::array<char, 16> buf{};
        std::snprintf(buf.data(), buf.size(), "\\U+%04X", v);
        r += buf.data();
    }
    return r;
}

// Angle [degrees] from the centre to a point.
double AngoloDxf(double dx, double dy) {
    if (std::fabs(dx) < kCoincidenza) return dy > 0.0 ? 90.0 : 270.0;
    const double a = std::atan(std::fabs(dy / dx)) * 180.0 / kPi;
    if (dx > 0.0) return dy >= 0.0 ? a : 360.0 - a;
    return dy >= 0.0 ? 180.0 - a : 180.0 + a;
}

class Dxf {
  public:
    Dxf(Disegno& d, const FontTratti& font, const OpzioniDxf& opz)
        : d_(d), font_(font), opz_(opz) {}

    std::string Scrivi() {
        Testata();
        Gruppo(" 0", "SECTION");
        Gruppo(" 2", "ENTITIES");
        for (const LineaDis& l : d_.linee) Linea(l);
        for (const TestoDis& t : d_.testi) {
            if (opz_.testoComeLinee) {
                TestoATratti(t);
            } else {
                Testo(t);
            }
        }
        for (const ArcoDis& a : d_.archi) Arco(a);
        Gruppo(" 0", "ENDSEC");
        Gruppo(" 0", "EOF");
        return std::move(t_);
    }

  private:
    void Gruppo(const char* codice, std::string_view valore) {
        t_.append(codice).append("\n").append(valore).append("\n");
    }
    void Gruppo(const char* codice, double x) { Gruppo(codice, TestoGenerale(x)); }
    void Punto(const char* x, const char* y, const char* z, double vx, double vy) {
        Gruppo(x, vx);
        Gruppo(y, vy);
        Gruppo(z, "0.0");
    }
    void Entita(const char* tipo, double x, double y) {
        Gruppo(" 0", tipo);
        Gruppo(" 8", "0");
        Punto(" 10", " 20", " 30", x, y);
    }
    double X(int i) const { return d_.coordX[static_cast<std::size_t>(i)]; }
    double Y(int i) const { return d_.coordY[static_cast<std::size_t>(i)]; }
    int Mappato(short colore) const { return opz_.monocromatico ? 7 : ColoreDxf(colore); }
    // Colour 1 is the layer's own and is not written.
    void Colore(short colore) {
        if (colore != 1) Gruppo(" 62", static_cast<double>(Mappato(colore)));
    }

    void Testata() {
        LimitiDisegno(d_);
        const double m = Max(0.05 * (d_.maxX - d_.minX), 0.05 * (d_.maxY - d_.minY));
        Gruppo(" 0", "SECTION");
        Gruppo(" 2", "HEADER");
        Gruppo(" 9", "$EXTMIN");
        Punto(" 10", " 20", " 30", d_.minX - m, d_.minY - m);
        Gruppo(" 9", "$EXTMAX");
        Punto(" 10", " 20", " 30", d_.maxX + m, d_.maxY + m);
        Gruppo(" 0", "ENDSEC");
        Gruppo(" 0", "SECTION");
        Gruppo(" 2", "TABLES");
        if (opz_.tipiLinea) TipiLinea();
        for (const auto& [codice, valore] : {std::pair{" 0", "TABLE"},
                                             {" 2", "LAYER"},
                                             {" 70", "1"},
                                             {" 0", "LAYER"},
                                             {" 2", "0"},
                                             {" 70", "0"},
                                             {" 62", "7"},
                                             {" 6", "CONTINUOUS"},
                                             {" 0", "ENDTAB"},
                                             {" 0", "ENDSEC"}}) {
            Gruppo(codice, valore);
        }
    }

    // Table of the line types that the entities name. Strokes in drawing units, full ones positive,
    // such that a sheet at 1:10 shows 4 mm dashes.
    void TipiLinea() {
        struct Tipo {
            const char *nome, *descrizione;
            std::vector<double> tratti;
        };
        const std::array<Tipo, 5> tipi{{{"CONTINUOUS", "Solid line", {}},
                                        {"CENTER", "____ _ ____ _", {120, -30, 30, -30}},
                                        {"DASHED", "__ __ __", {40, -20}},
                                        {"DIVIDE", "____ . . ____", {60, -20, 5, -20, 5, -20}},
                                        {"DASHED2", "_ _ _ _", {20, -10}}}};
        Gruppo(" 0", "TABLE");
        Gruppo(" 2", "LTYPE");
        Gruppo(" 70", std::to_string(tipi.size()));
        for (const Tipo& t : tipi) {
            double periodo = 0.0;
            for (const double x : t.tratti) periodo += std::fabs(x);
            Gruppo(" 0", "LTYPE");
            Gruppo(" 2", t.nome);
            Gruppo(" 70", "0");
            Gruppo(" 3", t.descrizione);
            Gruppo(" 72", "65");
            Gruppo(" 73", std::to_string(t.tratti.size()));
            Gruppo(" 40", periodo);
            for (const double x : t.tratti) Gruppo(" 49", x);
        }
        Gruppo(" 0", "ENDTAB");
    }

    void Linea(const LineaDis& l) {
        Entita("LINE", X(l.lineaIni), Y(l.lineaIni));
        Punto(" 11", " 21", " 31", X(l.lineaFin), Y(l.lineaFin));
        Colore(l.lineaColore);
        if (l.lineaTipo != 0) Gruppo(" 6", NomeTipoLinea(l.lineaTipo));
    }

    void Testo(const TestoDis& t) {
        std::string s = t.testoStringa;
        if (const std::size_t p = s.find(']'); p != std::string::npos) s.replace(p, 1, "%%c");
        Entita("TEXT", X(t.testoCoord), Y(t.testoCoord));
        Gruppo(" 40", t.testoAlt / 10.0);
        Gruppo(" 1", InAscii(TogliCR(s)));
        Gruppo(" 50", static_cast<double>(t.testoAngolo));
        Gruppo(" 41", t.testoAlt == 0 ? 1.0 : double(t.testoLargh) / double(t.testoAlt));
        Colore(t.testoColore);
    }

    // The glyphs stand on a base line at 30 of 99; a cell is as wide as a character.
    void TestoATratti(const TestoDis& t) {
        const double a = t.testoAngolo * std::atan(1.0) * 4.0 / 180.0;
        const double c = std::cos(a), s = std::sin(a);
        const double largh = t.testoLargh / 10.0, alt = t.testoAlt / 10.0;
        const double fx = largh / 99.0 * (1.0 - font_.fontSpaziatura / 100.0), fy = alt / 69.0;
        std::string codici;
        if (!AWindows1252(t.testoStringa, codici)) codici = t.testoStringa;
        double passo = -largh;
        for (const char carattere : codici) {
            passo += largh;
            const auto g = static_cast<unsigned char>(carattere);
            const double bx = passo * c + X(t.testoCoord), by = passo * s + Y(t.testoCoord);
            const auto trasla = [&](std::size_t k) {
                const double px = font_.fontX[g][k] * fx, py = (font_.fontY[g][k] - 30) * fy;
                return std::pair{px * c - py * s + bx, px * s + py * c + by};
            };
            for (int k = 0; k + 1 < font_.fontNumPunti[g]; k += 2) {
                const auto [x1, y1] = trasla(static_cast<std::size_t>(k));
                const auto [x2, y2] = trasla(static_cast<std::size_t>(k) + 1);
                Entita("LINE", x1, y1);
                Punto(" 11", " 21", " 31", x2, y2);
                if (Mappato(t.testoColore) != 7) Gruppo(" 62", double(Mappato(t.testoColore)));
            }
        }
    }

    void Arco(const ArcoDis& a) {
        const double cx = X(a.arcoCentro), cy = Y(a.arcoCentro);
        const double dx = X(a.arcoIni) - cx, dy = Y(a.arcoIni) - cy;
        const double raggio = std::sqrt(dx * dx + dy * dy);
        if (raggio < kCoincidenza) return;
        const double ex = X(a.arcoFin) - cx, ey = Y(a.arcoFin) - cy;
        const bool intero = std::fabs(dx - ex) < kCoincidenza && std::fabs(dy - ey) < kCoincidenza;
        Entita(intero ? "CIRCLE" : "ARC", cx, cy);
        Gruppo(" 40", raggio);
        if (!intero) {
            Gruppo(" 50", AngoloDxf(dx, dy));
            Gruppo(" 51", AngoloDxf(ex, ey));
        }
        Colore(a.arcoColore);
        if (a.arcoFlag != 0) Gruppo(" 6", NomeTipoLinea(a.arcoFlag));
    }

    Disegno& d_;
    const FontTratti& font_;
    const OpzioniDxf& opz_;
    std::string t_;
};

}  // namespace

std::string ComponiDxf(Disegno& d, const FontTratti& font, const OpzioniDxf& opz) {
    return Dxf(d, font, opz).Scrivi();
}

bool ScriviDxf(Disegno& d, std::string_view nomeFile, const FontTratti& font, const OpzioniDxf& opz,
               bool silenzioso, const Piattaforma& p) {
    const std::string nome = PercorsoMostrato(nomeFile);
    const std::string errore = ScriviFile(nomeFile, ComponiDxf(d, font, opz), Codifica::utf8);
    if (!errore.empty()) {
        MostraErrore(p, "ERRORE: non riesco ad aprire il file " + nome + "\n" + errore);
        return false;
    }
    if (!silenzioso) {
        p.messaggio("File " + nome + " salvato.", "SALVA FILE DXF", Segno::informazione,
                    Pulsanti::OK);
    }
    return true;
}

}  // namespace tk07
