#include "relazione/segnalibri.h"

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

}  // namespace

QByteArray ConSegnalibri(const QByteArray& pdf, const Impaginato& im, QString& errore) {
    try {
        QPDF doc;
        doc.processMemoryFile("relazione", pdf.constData(), static_cast<std::size_t>(pdf.size()));
        const auto pagine = QPDFPageDocumentHelper(doc).getAllPages();
        Oggetto radice = doc.makeIndirectObject(Oggetto::parse("<< /Type /Outlines >>"));
        std::vector<Oggetto> capitoli;
        std::vector<Oggetto> sezioni;
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
        for (const Segnalibro& s : im.segnalibri) {
            const auto k = static_cast<std::size_t>(s.pagina);
            const double alto = im.pagine.at(k).foglio.height() / 25.4 * 72.0 - s.alto / kPtRel;
            Oggetto dove = Oggetto::newArray();
            dove.appendItem(pagine.at(k).getObjectHandle());
            dove.appendItem(Oggetto::newName("/XYZ"));
            dove.appendItem(Oggetto::newInteger(0));
            dove.appendItem(Oggetto::newReal(alto, 1));
            dove.appendItem(Oggetto::newNull());
            Oggetto voce = Oggetto::newDictionary();
            voce.replaceKey("/Title", Oggetto::newUnicodeString(s.testo.toStdString()));
            voce.replaceKey("/Dest", dove);
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
        Oggetto catalogo = doc.getRoot();
        catalogo.replaceKey("/Outlines", radice);
        catalogo.replaceKey("/PageMode", Oggetto::newName("/UseOutlines"));
        catalogo.replaceKey("/Lang", Oggetto::newString("it-IT"));
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
