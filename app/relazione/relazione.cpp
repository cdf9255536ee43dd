#include "relazione/relazione.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QFontDatabase>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgRenderer>
#include <memory>

#include "base/file_testo.h"
#include "base/testo.h"
#include "drawing/composizione.h"
#include "joint/file_nodo.h"
#include "pdf/segnalibri.h"
#include "render/tavola.h"

namespace tk07 {

namespace {

// A sheet that A4 would show beyond 1:10 comes on a page of this size.
constexpr double kA3L = 420.0, kA3A = 297.0;
constexpr double kLogoA = 10.0, kLogoL = 45.0;  // room for the logo [mm]

QString Due(int n) { return QString::number(n).rightJustified(2, QLatin1Char('0')); }

// The picture of the head, as it is or as curves.
struct Logo {
    QImage immagine;
    std::unique_ptr<QSvgRenderer> svg;
    QSizeF Misura() const { return svg ? QSizeF(svg->defaultSize()) : QSizeF(immagine.size()); }
    void Dipingi(QPainter& p, const QRectF& dove) const {
        if (Misura().isEmpty()) return;
        const QSizeF q = Misura().scaled(dove.size(), Qt::KeepAspectRatio);
        const QRectF qui(QPointF(dove.right() - q.width(), dove.center().y() - q.height() / 2.0),
                         q);
        if (svg) {
            svg->render(&p, qui);
        } else {
            p.drawImage(qui, immagine);
        }
    }
};

class Scrittura {
  public:
    Scrittura(const Sessione& s, const RelazioneEstesa& d, const OpzioniRelazione& opz)
        : s_(s), d_(d), opz_(opz), intestazione_(LeggiIntestazione(s.dir.dirCustom)) {
        const Orologio o = s.piattaforma.orologio();
        data_ = Due(o.giorno) + "/" + Due(o.mese) + "/" + QString::number(o.anno) + " " +
                Due(o.ora) + ":" + Due(o.minuto);
        std::string bytes, errore;
        if (opz.fileNodo.isEmpty() || !LeggiBytes(opz.fileNodo.toStdString(), bytes, errore)) {
            bytes = TestoFileNodo(s.nodo, Orologio{});  // the same joint, the same hash
        }
        impronta_ = QString::fromLatin1(
            QCryptographicHash::hash(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())),
                                     QCryptographicHash::Sha256)
                .toHex());
        if (!intestazione_.logo.isEmpty()) {
            const QString f = QString::fromStdString(
                PercorsoPiattaforma(s.dir.dirCustom + "/" + intestazione_.logo.toStdString()));
            if (QFileInfo(f).suffix().toLower() == "svg") {
                logo_.svg = std::make_unique<QSvgRenderer>(f);
                if (!logo_.svg->isValid()) logo_.svg.reset();
            } else {
                logo_.immagine = QImage(f);
            }
        }
    }

    QByteArray Pdf(QString& errore) {
        PreparaTavola();
        figure_.vista3d = opz_.vista3d;
        const Impaginato im = Impagina(d_, Scheda(), caratteri_, figure_);
        QByteArray bytes;
        QBuffer uscita(&bytes);
        uscita.open(QIODevice::WriteOnly);
        QPdfWriter pdf(&uscita);
        pdf.setResolution(kPuntiRelazione);
        pdf.setCreator(Programma());
        pdf.setTitle(DaUtf8("Relazione di calcolo - " + s_.nomeFile));
        Pagina(pdf, im.pagine[0]);
        QPainter p;
        if (!p.begin(&pdf)) {
            errore = QStringLiteral("composizione della relazione fallita");
            return {};
        }
        const int tutte = static_cast<int>(im.pagine.size());
        for (int k = 0; k < tutte; ++k) {
            const PaginaRel& pagina = im.pagine[static_cast<std::size_t>(k)];
            if (k > 0) {
                Pagina(pdf, pagina);
                pdf.newPage();
            }
            for (const auto& elemento : pagina.elementi) elemento(p);
            Cornice(p, pagina, k + 1, tutte);
            if (opz_.avanzamento) opz_.avanzamento(k + 1, tutte);
        }
        if (!p.end()) {
            errore = QStringLiteral("composizione della relazione fallita");
            return {};
        }
        uscita.close();
        return ConSegnalibri(bytes, im.segnalibri, {}, errore);
    }

  private:
    static void Pagina(QPdfWriter& pdf, const PaginaRel& pagina) {
        pdf.setPageLayout(QPageLayout(
            QPageSize(pagina.foglio, QPageSize::Millimeter, QString(), QPageSize::ExactMatch),
            QPageLayout::Portrait, QMarginsF()));
    }
    static QString Programma() { return QStringLiteral("TK07 " TK07_VERSIONE); }

    std::vector<std::pair<QString, QString>> Scheda() const {
        const QString nome = opz_.fileNodo.isEmpty()
                                 ? DaUtf8(s_.nomeFile + ".tk7")
                                 : DaUtf8(NomeSenzaDirettorio(opz_.fileNodo.toStdString()));
        return {{QStringLiteral("File"), nome},
                {QStringLiteral("Lavoro"), DaUtf8(s_.dir.nomeLavoro)},
                {QStringLiteral("Impronta SHA-256"), impronta_},
                {QStringLiteral("Data"), data_},
                {QStringLiteral("Programma"), Programma()}};
    }

    // The sheet on A4 lying, or A3 where A4 would make it too small to read.
    void PreparaTavola() {
        if (!DisegnaNodo(s_.nodo, s_.opz, Squadratura::no, disegno_, PiattaformaMuta())) return;
        const QRectF q = IngombroDisegno(disegno_);
        foglio_ = FoglioDato(q.width(), q.height(), QStringLiteral("A4"), 297.0, 210.0);
        if (foglio_.ridotta) {
            foglio_ = FoglioDato(q.width(), q.height(), QStringLiteral("A3"), kA3L, kA3A);
            // Between 1:10 and 1:20 lies half the size of the letters.
            const QSizeF area = foglio_.area.size() * 15.0;
            if (foglio_.scala == 20 && q.width() <= area.width() && q.height() <= area.height()) {
                foglio_.scala = 15;
            }
        }
        figure_.foglioTavola = {foglio_.larghezza, foglio_.altezza};
        figure_.tavola = [this](QPainter& p, const QRectF&) {
            OpzioniPittura opz;
            opz.spessori = SpessoriPenne(s_.opz);
            Cartiglio c;
            c.programma = QStringLiteral("TK07 - Nodo trave - trave con piastre");
            c.titolo = DaUtf8(TitoloTavola(s_.nodo));
            c.file = DaUtf8(s_.nomeFile + ".tk7");
            c.materiali = DaUtf8("Acciaio " + Taglia(s_.nodo.acciaio.Nome) + ", viti classe " +
                                 Taglia(s_.nodo.vite.Nome));
            c.data = data_.left(10);
            p.scale(kMmRel, kMmRel);
            DipingiTavola(p, disegno_, foglio_, c, opz);
        };
    }

    // Head and foot.
    void Cornice(QPainter& p, const PaginaRel& pagina, int numero, int tutte) const {
        const double destra =
            (pagina.foglio.width() - (pagina.tavola ? 10.0 : kDestraRel)) * kMmRel;
        const double sinistra = kSinistraRel * kMmRel;
        const Carattere& c = caratteri_.stretta;
        const QColor grigio(90, 90, 90);
        p.setFont(c.Font());
        p.setPen(grigio);
        const double basso =
            (pagina.foglio.height() - (pagina.tavola ? 4.5 : kBassoRel - 7.0)) * kMmRel;
        const QString nome = opz_.fileNodo.isEmpty()
                                 ? DaUtf8(s_.nomeFile + ".tk7")
                                 : DaUtf8(NomeSenzaDirettorio(opz_.fileNodo.toStdString()));
        const QString coda =
            QStringLiteral(" – SHA-256 ") + impronta_.left(16) + QStringLiteral(" – ") + data_;
        const QString pag = QStringLiteral("pagina %1 di %2").arg(numero).arg(tutte);
        const double libero = destra - sinistra - c.Larghezza(coda) -
                              c.Larghezza(Programma() + QStringLiteral(" – ")) - c.Larghezza(pag) -
                              4.0 * kMmRel;
        p.drawText(QPointF(sinistra, basso),
                   Programma() + QStringLiteral(" – ") + Corto(nome, c, libero) + coda);
        p.drawText(QPointF(destra - c.Larghezza(pag), basso), pag);
        if (pagina.tavola) return;
        p.setPen(QPen(QColor(160, 165, 175), 6));
        p.drawLine(QPointF(sinistra, basso - 3.4 * kMmRel), QPointF(destra, basso - 3.4 * kMmRel));
        const QRectF posto(destra - kLogoL * kMmRel, 6.0 * kMmRel, kLogoL * kMmRel,
                           kLogoA * kMmRel);
        const bool conLogo = !logo_.Misura().isEmpty();
        if (conLogo) logo_.Dipingi(p, posto);
        p.setPen(grigio);
        p.setFont(caratteri_.tabella.Font());
        const QString testa =
            intestazione_.testo.isEmpty()
                ? QStringLiteral("Relazione di calcolo del nodo ") + DaUtf8(s_.nomeFile)
                : intestazione_.testo;
        p.drawText(QPointF(sinistra, 14.0 * kMmRel),
                   Corto(testa, caratteri_.tabella,
                         destra - sinistra - (conLogo ? (kLogoL + 3.0) * kMmRel : 0.0)));
        p.setPen(QPen(QColor(160, 165, 175), 6));
        p.drawLine(QPointF(sinistra, 17.0 * kMmRel), QPointF(destra, 17.0 * kMmRel));
    }
    // Cut to the width, with dots.
    static QString Corto(const QString& t, const Carattere& c, double largo) {
        if (c.Larghezza(t) <= largo) return t;
        QString r = t;
        while (!r.isEmpty() && c.Larghezza(r + QStringLiteral("…")) > largo) r.chop(1);
        return r + QStringLiteral("…");
    }

    const Sessione& s_;
    const RelazioneEstesa& d_;
    const OpzioniRelazione& opz_;
    const Intestazione intestazione_;
    const CaratteriRel caratteri_;
    QString data_, impronta_;
    Logo logo_;
    Disegno disegno_;
    Foglio foglio_;
    FigureRelazione figure_;
};

bool Guasto(QString& errore, const QString& file, const QString& cosa) {
    errore = DaUtf8(PercorsoMostrato(file.toStdString())) + ": " + cosa;
    return false;
}

}  // namespace

Intestazione LeggiIntestazione(const std::string& dirCustom) {
    const FileLetto f = LeggiRighe(dirCustom + "/intestazione.txt");
    Intestazione i;
    if (f.righe.size() > 0) i.testo = DaUtf8(Taglia(f.righe[0]));
    if (f.righe.size() > 1) i.logo = DaUtf8(Taglia(f.righe[1]));
    return i;
}

bool ScriviRelazioneEstesa(const Sessione& s, const RelazioneEstesa& documento, const QString& file,
                           const OpzioniRelazione& opz, QString& errore) {
    // Without any font the toolkit draws no text and says nothing.
    if (QFontDatabase::families().isEmpty()) {
        return Guasto(errore, file,
                      QStringLiteral("nessun carattere installato: serve DejaVu Sans"));
    }
    QString detto;
    const QByteArray bytes = Scrittura(s, documento, opz).Pdf(detto);
    if (bytes.isEmpty()) return Guasto(errore, file, detto);
    const std::string scritto =
        ScriviFile(file.toStdString(), {bytes.constData(), static_cast<std::size_t>(bytes.size())},
                   Codifica::utf8);
    if (scritto.empty()) return true;
    return Guasto(errore, file, "file non scritto: " + DaUtf8(scritto));
}

bool ScriviRelazioneEstesa(const Sessione& s, const QString& file, const OpzioniRelazione& opz,
                           QString& errore) {
    const RelazionePreparata r = PreparaRelazioneEstesa(s.nodo, s.opz, s.unita, opz.forma);
    if (r.esito != EsitoVerifica::completata) {
        errore = QStringLiteral("La verifica non è possibile!");
        for (const std::string& m : r.messaggi) errore += "\n" + DaUtf8(m);
        return false;
    }
    return ScriviRelazioneEstesa(s, r.documento, file, opz, errore);
}

}  // namespace tk07
