#include "pdf/segnalibri.h"

#include <exception>
#include <memory>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

namespace tk07 {

namespace {

using Oggetto = QPDFObjectHandle;

// Links the entries first..last of one level below `padre`.
void Lega(Oggetto padre, std::vector<Oggetto>& voci) {
    for (std::size_t i = 0; i < voci.size(); ++i) {
        voci[i].replaceKey("/Parent", padre);
        if (i > 0) voci[i].replaceKey("/Prev", voci[i - 1]);
        if (i + 1 < voci.size()) voci[i].replaceKey("/Next", voci[i + 1]);
    }
    if (voci.empty()) return;
    padre.replaceKey("/First", voci.front());
    padre.replaceKey("/Last", voci.back());
}

using Pagine = std::vector<QPDFPageObjectHelper>;

double Altezza(const Pagine& pagine, int k) {
    QPDFPageObjectHelper p = pagine.at(static_cast<std::size_t>(k));
    return p.getMediaBox().getArrayAsRectangle().ury;
}

Oggetto Meta(const Pagine& pagine, const Segnalibro& s) {
    QPDFPageObjectHelper p = pagine.at(static_cast<std::size_t>(s.pagina));
    Oggetto dove = Oggetto::newArray();
    dove.appendItem(p.getObjectHandle());
    dove.appendItem(Oggetto::newName("/XYZ"));
    dove.appendItem(Oggetto::newInteger(0));
    dove.appendItem(Oggetto::newReal(Altezza(pagine, s.pagina) - s.alto, 1));
    dove.appendItem(Oggetto::newNull());
    return dove;
}

void AggiungiIndice(QPDF& doc, const Pagine& pagine, const std::vector<Segnalibro>& segnalibri) {
    Oggetto radice = doc.makeIndirectObject(Oggetto::parse("<< /Type /Outlines >>"));
    std::vector<Oggetto> capitoli, sezioni;
    const auto chiudi = [&] {
        if (capitoli.empty()) return;
        Lega(capitoli.back(), sezioni);
        // Sections stay folded: a negative count.
        if (!sezioni.empty()) {
            capitoli.back().replaceKey(
                "/Count", Oggetto::newInteger(-static_cast<long long>(sezioni.size())));
        }
        sezioni.clear();
    };
    for (const Segnalibro& s : segnalibri) {
        Oggetto voce = Oggetto::newDictionary();
        voce.replaceKey("/Title", Oggetto::newUnicodeString(s.testo.toStdString()));
        voce.replaceKey("/Dest", Meta(pagine, s));
        voce = doc.makeIndirectObject(voce);
        if (s.livello == 1) {
            chiudi();
            capitoli.push_back(voce);
        } else {
            sezioni.push_back(voce);
        }
    }
    chiudi();
    Lega(radice, capitoli);
    radice.replaceKey("/Count", Oggetto::newInteger(static_cast<long long>(capitoli.size())));
    doc.getRoot().replaceKey("/Outlines", radice);
    doc.getRoot().replaceKey("/PageMode", Oggetto::newName("/UseOutlines"));
}

void AggiungiRimandi(QPDF& doc, const Pagine& pagine, const std::vector<Segnalibro>& segnalibri,
                     const std::vector<Rimando>& rimandi) {
    for (const Rimando& r : rimandi) {
        QPDFPageObjectHelper p = pagine.at(static_cast<std::size_t>(r.pagina));
        Oggetto pagina = p.getObjectHandle();
        const double alta = Altezza(pagine, r.pagina);
        Oggetto nota = Oggetto::parse("<< /Type /Annot /Subtype /Link /Border [0 0 0] >>");
        nota.replaceKey("/Rect", Oggetto::newFromRectangle({r.dove.left(), alta - r.dove.bottom(),
                                                            r.dove.right(), alta - r.dove.top()}));
        nota.replaceKey("/Dest", Meta(pagine, segnalibri.at(r.segnalibro)));
        if (!pagina.getKey("/Annots").isArray()) {
            pagina.replaceKey("/Annots", Oggetto::newArray());
        }
        pagina.getKey("/Annots").appendItem(doc.makeIndirectObject(nota));
    }
}

}  // namespace

QByteArray ConSegnalibri(const QByteArray& pdf, const std::vector<Segnalibro>& segnalibri,
                         const std::vector<Rimando>& rimandi, QString& errore) {
    try {
        QPDF doc;
        doc.processMemoryFile("documento", pdf.constData(), static_cast<std::size_t>(pdf.size()));
        const Pagine pagine = QPDFPageDocumentHelper(doc).getAllPages();
        AggiungiIndice(doc, pagine, segnalibri);
        AggiungiRimandi(doc, pagine, segnalibri, rimandi);
        doc.getRoot().replaceKey("/Lang", Oggetto::newString("it-IT"));
        QPDFWriter w(doc);
        w.setOutputMemory();
        w.setObjectStreamMode(qpdf_o_generate);
        w.write();
        const std::shared_ptr<Buffer> b = w.getBufferSharedPointer();
        return QByteArray(reinterpret_cast<const char*>(b->getBuffer()),
                          static_cast<qsizetype>(b->getSize()));
    } catch (const std::exception& e) {
        errore = QString::fromUtf8(e.what());
        return {};
    }
}

}  // namespace tk07
