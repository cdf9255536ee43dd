#include "manuale/pagine.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <map>
#include <numeric>

namespace tk07::manuale {

namespace {

constexpr double kCorpo = 9.5, kCorpoTabella = 8.5, kCorpoCodice = 8.0;  // points
constexpr double kCella = 1.3;                                           // mm around a cell's text
const QColor kBlu(31, 58, 95), kRiga(160, 168, 178), kFondo(232, 237, 243), kCarta(246, 247, 249);

// Markdown would take a leading sign or number of a cell or item for a list or a heading.
QString Protetto(QString t) {
    static const QRegularExpression segno(QStringLiteral("^([-+*#>]\\s|[-+*#>]$|-{2,}\\s)"));
    static const QRegularExpression numero(QStringLiteral("^(\\d+)([.)])(\\s|$)"));
    if (segno.match(t).hasMatch()) t.prepend(QLatin1Char('\\'));
    t.replace(numero, QStringLiteral("\\1\\\\2\\3"));
    return t;
}

// A trace of spacing keeps letters apart: a joined "fi" could not be searched for in the PDF.
QFont Carattere(const char* famiglia, double corpo, bool grassetto) {
    QFont font(QString::fromLatin1(famiglia));
    font.setPointSizeF(corpo);
    font.setBold(grassetto);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.05);
    return font;
}

std::shared_ptr<QTextDocument> Documento(QPaintDevice& carta, const QString& markdown, double corpo,
                                         bool grassetto) {
    auto doc = std::make_shared<QTextDocument>();
    doc->documentLayout()->setPaintDevice(&carta);
    doc->setDocumentMargin(0.0);
    doc->setDefaultFont(Carattere("DejaVu Sans", corpo, grassetto));
    doc->setMarkdown(Protetto(markdown), QTextDocument::MarkdownDialectGitHub);
    QTextOption opzione = doc->defaultTextOption();
    opzione.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    doc->setDefaultTextOption(opzione);
    for (QTextBlock b = doc->begin(); b.isValid(); b = b.next()) {
        QTextCursor c(b);
        QTextBlockFormat f = b.blockFormat();
        f.setTopMargin(0.0);
        f.setBottomMargin(0.0);
        f.setLineHeight(116.0, QTextBlockFormat::ProportionalHeight);
        c.setBlockFormat(f);
        for (auto it = b.begin(); !it.atEnd(); ++it) {
            const QTextFragment pezzo = it.fragment();
            QTextCharFormat fc;
            if (pezzo.charFormat().fontFixedPitch()) {
                fc.setFontFamilies({QStringLiteral("DejaVu Sans Mono")});
                fc.setFontPointSize(corpo * 0.92);
            }
            QTextCursor k(doc.get());
            k.setPosition(pezzo.position());
            k.setPosition(pezzo.position() + pezzo.length(), QTextCursor::KeepAnchor);
            k.mergeCharFormat(fc);
        }
    }
    return doc;
}

void Dipingi(QPainter& p, QTextDocument& doc, const QPointF& dove) {
    p.save();
    p.translate(dove);
    QAbstractTextDocumentLayout::PaintContext contesto;
    contesto.palette.setColor(QPalette::Text, p.pen().color());
    doc.documentLayout()->draw(&p, contesto);
    p.restore();
}

// Widths of the columns: the longest word at least, then as the texts want, the whole width in use.
std::vector<double> Colonne(const std::vector<double>& minime, const std::vector<double>& volute,
                            double larghezza) {
    std::vector<double> l = minime;
    const double somma = std::accumulate(l.begin(), l.end(), 0.0);
    double voglia = 0.0;
    for (std::size_t i = 0; i < l.size(); ++i) voglia += volute[i] - minime[i];
    const double resto = larghezza - somma;
    for (std::size_t i = 0; i < l.size(); ++i) {
        const double parte = resto < 0.0    ? l[i] / somma
                             : voglia > 0.0 ? (volute[i] - minime[i]) / voglia
                                            : 1.0 / static_cast<double>(l.size());
        l[i] += resto * parte;
    }
    return l;
}

}  // namespace

Impaginatore::Impaginatore(QPdfWriter& carta) : carta_(carta) {
    mm_ = carta.resolution() / 25.4;
    larghezza_ = carta.width();
    altezza_ = carta.height();
    cima_ = Mm(11.0);
    fondo_ = altezza_ - Mm(11.0);
}

Riquadro Impaginatore::Testo(const QString& markdown, double x, double larghezza, double corpo,
                             bool grassetto) {
    auto doc = Documento(carta_, markdown, corpo, grassetto);
    doc->setTextWidth(larghezza);
    Riquadro r;
    r.altezza = doc->size().height();
    r.disegna = [doc, x](QPainter& p, QPointF dove) { Dipingi(p, *doc, dove + QPointF(x, 0.0)); };
    return r;
}

bool Impaginatore::Tabella(const Blocco& b, QString& errore) {
    const qsizetype n = b.righe.first().size();
    for (const QStringList& r : b.righe) {
        if (r.size() != n) {
            errore = QStringLiteral("tabella con righe disuguali: ") + r.join(QLatin1Char('|'));
            return false;
        }
    }
    const double bordo = Mm(kCella);
    std::vector<double> minime(static_cast<std::size_t>(n)), volute(minime);
    for (qsizetype i = 0; i < b.righe.size(); ++i) {
        for (qsizetype c = 0; c < n; ++c) {
            auto doc = Documento(carta_, b.righe[i][c], kCorpoTabella, i == 0);
            const auto k = static_cast<std::size_t>(c);
            volute[k] = std::max(volute[k], doc->idealWidth() + 2.2 * bordo);
            double parola = 0.0;
            QFont font = doc->defaultFont();
            const QFontMetricsF m(font, &carta_);
            for (const QString& w :
                 doc->toPlainText().split(QRegularExpression(QStringLiteral("[\\s/_-]+")))) {
                parola = std::max(parola, m.horizontalAdvance(w));
            }
            minime[k] =
                std::min(std::max(minime[k], 1.06 * parola + 2.2 * bordo), larghezza_ * 0.42);
        }
    }
    // A very long text must not take the room of the others.
    for (double& v : volute) v = std::min(v, larghezza_ * 0.9);
    for (std::size_t k = 0; k < volute.size(); ++k) volute[k] = std::max(volute[k], minime[k]);
    double tutte = std::accumulate(volute.begin(), volute.end(), 0.0);
    const double larga = std::min(larghezza_, tutte);
    const std::vector<double> l =
        tutte <= larghezza_ ? volute : Colonne(minime, volute, larghezza_);

    std::shared_ptr<Riquadro> testata;
    const std::size_t primo = pezzi_.size();
    for (qsizetype i = 0; i < b.righe.size(); ++i) {
        std::vector<std::shared_ptr<QTextDocument>> celle;
        double alta = 0.0;
        for (qsizetype c = 0; c < n; ++c) {
            celle.push_back(Documento(carta_, b.righe[i][c], kCorpoTabella, i == 0));
            celle.back()->setTextWidth(l[static_cast<std::size_t>(c)] - 2.0 * bordo);
            alta = std::max(alta, celle.back()->size().height());
        }
        Riquadro r;
        r.altezza = alta + 2.0 * bordo * 0.75;
        const bool capo = i == 0;
        const double spessore = Mm(0.18);
        r.disegna = [celle, l, larga, bordo, spessore, capo, alto = r.altezza](QPainter& p,
                                                                               QPointF dove) {
            const QRectF tutto(dove, QSizeF(larga, alto));
            if (capo) p.fillRect(tutto, kFondo);
            double x = dove.x();
            for (std::size_t c = 0; c < celle.size(); ++c) {
                Dipingi(p, *celle[c], QPointF(x + bordo, dove.y() + bordo * 0.75));
                x += l[c];
            }
            p.save();
            p.setPen(QPen(kRiga, spessore));
            p.drawLine(tutto.bottomLeft(), tutto.bottomRight());
            if (capo) p.drawLine(tutto.topLeft(), tutto.topRight());
            p.restore();
        };
        if (capo) {
            r.spazioSopra = Mm(2.0);
            r.conIlProssimo = true;
            testata = std::make_shared<Riquadro>(r);
        } else {
            r.testata = testata;
        }
        pezzi_.push_back(r);
    }
    // A small table stays whole.
    double tutta = 0.0;
    for (std::size_t i = primo; i < pezzi_.size(); ++i) tutta += pezzi_[i].altezza;
    if (tutta < 0.3 * (fondo_ - cima_)) {
        for (std::size_t i = primo; i + 1 < pezzi_.size(); ++i) pezzi_[i].conIlProssimo = true;
    }
    return true;
}

bool Impaginatore::Figura(const Blocco& b, const QString& cartella, QString& errore) {
    const QString file = QDir(cartella).filePath(b.file);
    const QImage immagine(file);
    if (immagine.isNull()) {
        errore = QStringLiteral("figura non leggibile: ") + file;
        return false;
    }
    constexpr double kPuntiPerMm = 4.3;  // no coarser than about 110 dots an inch
    double larga = std::min(larghezza_, Mm(immagine.width() / kPuntiPerMm));
    double alta = larga * immagine.height() / immagine.width();
    const double massima = (fondo_ - cima_) * 0.62;
    if (alta > massima) {
        larga *= massima / alta;
        alta = massima;
    }
    Riquadro didascalia =
        Testo(QLatin1Char('*') + b.testo + QLatin1Char('*'), 0.0, larghezza_, kCorpoTabella, false);
    Riquadro r;
    r.spazioSopra = Mm(3.0);
    r.altezza = alta + Mm(1.5) + didascalia.altezza + Mm(1.0);
    r.disegna = [immagine, larga, alta, scritta = didascalia.disegna, filo = Mm(0.15),
                 sotto = Mm(1.5)](QPainter& p, QPointF dove) {
        const QRectF q(dove, QSizeF(larga, alta));
        p.drawImage(q, immagine);
        p.save();
        p.setPen(QPen(kRiga, filo));
        p.setBrush(Qt::NoBrush);
        p.drawRect(q);
        p.restore();
        scritta(p, dove + QPointF(0.0, alta + sotto));
    };
    pezzi_.push_back(r);
    return true;
}

void Impaginatore::Codice(const Blocco& b) {
    QFont font = Carattere("DejaVu Sans Mono", kCorpoCodice, false);
    const QFontMetricsF m(font, &carta_);
    const QStringList righe = b.testo.split(QLatin1Char('\n'));
    double larga = 0.0;
    for (const QString& r : righe) larga = std::max(larga, m.horizontalAdvance(r));
    const double bordo = Mm(2.0);
    // A line that is too long for the page makes the whole block smaller, never cut.
    if (larga > larghezza_ - 2.0 * bordo) {
        font.setPointSizeF(kCorpoCodice * (larghezza_ - 2.0 * bordo) / larga);
    }
    const double passo = QFontMetricsF(font, &carta_).height() * 1.05;
    Riquadro r;
    r.spazioSopra = Mm(2.0);
    r.altezza = static_cast<double>(righe.size()) * passo + 2.0 * bordo * 0.7;
    r.disegna = [this, righe, font, passo, bordo, alto = r.altezza](QPainter& p, QPointF dove) {
        p.save();
        p.fillRect(QRectF(dove, QSizeF(larghezza_, alto)), kCarta);
        p.setFont(font);
        const double salita = QFontMetricsF(font, &carta_).ascent();
        for (qsizetype i = 0; i < righe.size(); ++i) {
            p.drawText(dove + QPointF(bordo, bordo * 0.7 + salita + static_cast<double>(i) * passo),
                       righe[i]);
        }
        p.restore();
    };
    pezzi_.push_back(r);
}

bool Impaginatore::Capitolo(const QString& markdown, const QString& cartella, QString& errore) {
    constexpr double kTitoli[] = {18.0, 12.5, 10.5, 9.5};
    for (const Blocco& b : LeggiBlocchi(markdown)) {
        switch (b.tipo) {
            case Blocco::Tipo::titolo: {
                const int i = std::min(b.livello, 4) - 1;
                Riquadro r = Testo(b.testo, 0.0, larghezza_, kTitoli[i], true);
                r.livello = b.livello;
                r.titolo = b.testo;
                r.titolo.remove(QLatin1Char('`'));
                r.conIlProssimo = true;
                r.nuovaPagina = b.livello == 1;
                r.spazioSopra = b.livello == 1 ? 0.0 : Mm(b.livello == 2 ? 6.0 : 4.0);
                if (b.livello == 1) {
                    capitolo_ = r.titolo;
                    r.altezza += Mm(3.0);
                }
                r.capitolo = capitolo_;
                const auto scrivi = r.disegna;
                r.disegna = [scrivi](QPainter& p, QPointF dove) {
                    p.save();
                    p.setPen(kBlu);
                    scrivi(p, dove);
                    p.restore();
                };
                pezzi_.push_back(r);
                break;
            }
            case Blocco::Tipo::testo: {
                Riquadro r = Testo(b.testo, 0.0, larghezza_, kCorpo, false);
                r.spazioSopra = Mm(2.0);
                // What ends with a colon leads to what follows.
                r.conIlProssimo = b.testo.endsWith(QLatin1Char(':'));
                pezzi_.push_back(r);
                break;
            }
            case Blocco::Tipo::voce: {
                const double rientro = Mm(b.segno.size() > 1 ? 7.0 : 5.0);
                Riquadro r = Testo(b.testo, rientro, larghezza_ - rientro, kCorpo, false);
                r.spazioSopra = Mm(1.0);
                const Riquadro segno = Testo(b.segno, 0.0, rientro, kCorpo, false);
                r.disegna = [segno = segno.disegna, testo = r.disegna](QPainter& p, QPointF dove) {
                    segno(p, dove);
                    testo(p, dove);
                };
                pezzi_.push_back(r);
                break;
            }
            case Blocco::Tipo::codice:
                Codice(b);
                break;
            case Blocco::Tipo::tabella:
                if (!Tabella(b, errore)) return false;
                break;
            case Blocco::Tipo::figura:
                if (!Figura(b, cartella, errore)) return false;
                break;
        }
    }
    return true;
}

bool Impaginatore::Disponi(const std::vector<Riquadro>& pezzi, std::vector<Pagina>& pagine,
                           QString& errore) const {
    double y = fondo_ + 1.0;
    QString capitolo;
    const auto giraPagina = [&] {
        pagine.push_back({capitolo, {}});
        y = cima_;
    };
    bool catena = false;  // the piece before has brought this one along
    for (std::size_t i = 0; i < pezzi.size(); ++i) {
        const Riquadro& r = pezzi[i];
        if (!r.capitolo.isEmpty()) capitolo = r.capitolo;
        // What must stay together, from here on.
        double serve = r.altezza;
        for (std::size_t k = i; pezzi[k].conIlProssimo && k + 1 < pezzi.size(); ++k) {
            serve += pezzi[k + 1].spazioSopra + pezzi[k + 1].altezza;
        }
        const double piena = fondo_ - cima_;
        if (r.altezza + (r.testata ? r.testata->altezza : 0.0) > piena) {
            errore = QStringLiteral("un pezzo è più alto della pagina: ") + capitolo;
            return false;
        }
        const double sopra = y > cima_ ? r.spazioSopra : 0.0;
        const bool nonCiSta = y + sopra + std::min(serve, piena) > fondo_;
        if (pagine.empty() || (r.nuovaPagina && y > cima_) || (nonCiSta && !catena) ||
            y + sopra + r.altezza > fondo_) {
            giraPagina();
            if (r.testata) {
                pagine.back().posti.push_back({r.testata.get(), y});
                y += r.testata->altezza;
            }
        } else {
            y += sopra;
        }
        pagine.back().posti.push_back({&r, y});
        y += r.altezza;
        catena = r.conIlProssimo;
    }
    return true;
}

std::vector<Riquadro> Impaginatore::Indice(const std::vector<Pagina>& pagine, int spostamento) {
    std::vector<Riquadro> righe;
    Riquadro titolo = Testo(QStringLiteral("Indice"), 0.0, larghezza_, 18.0, true);
    titolo.altezza += Mm(2.0);
    titolo.capitolo = QStringLiteral("Indice");
    righe.push_back(titolo);
    for (std::size_t i = 0; i < pagine.size(); ++i) {
        for (const Posto& posto : pagine[i].posti) {
            const Riquadro& t = *posto.riquadro;
            if (t.livello < 1 || t.livello > 2) continue;
            const bool primo = t.livello == 1;
            const QFont font = Carattere("DejaVu Sans", primo ? 10.0 : 9.0, primo);
            const QFontMetricsF m(font, &carta_);
            const QString numero = QString::number(static_cast<int>(i) + 1 + spostamento);
            Riquadro r;
            r.altezza = m.height() * 1.15;
            r.spazioSopra = t.livello == 1 ? Mm(2.2) : 0.0;
            r.conIlProssimo = t.livello == 1;
            r.meta = &t;
            r.disegna = [this, font, m, numero, testo = t.titolo,
                         x = Mm(t.livello == 1 ? 0.0 : 6.0)](QPainter& p, QPointF dove) {
                p.save();
                p.setFont(font);
                const double base = dove.y() + m.ascent(), fine = dove.x() + larghezza_;
                const double xn = fine - m.horizontalAdvance(numero);
                p.drawText(QPointF(dove.x() + x, base), testo);
                p.drawText(QPointF(xn, base), numero);
                p.setPen(QPen(kRiga, Mm(0.25), Qt::DotLine));
                const double da = dove.x() + x + m.horizontalAdvance(testo) + Mm(2.0);
                if (da < xn - Mm(4.0)) {
                    p.drawLine(QPointF(da, base), QPointF(xn - Mm(2.0), base));
                }
                p.restore();
            };
            righe.push_back(r);
        }
    }
    return righe;
}

void Impaginatore::Segna(const std::vector<Pagina>& prime, const std::vector<Pagina>& pagine) {
    const QMarginsF bordi = carta_.pageLayout().margins(QPageLayout::Point);
    const double punti = 72.0 / carta_.resolution();
    const auto alto = [&](double y) { return bordi.top() + y * punti; };
    segnalibri_ = {{1, QStringLiteral("Indice"), 1, 0.0}};
    rimandi_.clear();
    std::map<const Riquadro*, std::size_t> dove;
    const int davanti = 1 + static_cast<int>(prime.size());
    for (std::size_t i = 0; i < pagine.size(); ++i) {
        for (const Posto& posto : pagine[i].posti) {
            const Riquadro& t = *posto.riquadro;
            if (t.livello < 1 || t.livello > 2) continue;
            dove[&t] = segnalibri_.size();
            segnalibri_.push_back(
                {t.livello, t.titolo, davanti + static_cast<int>(i), alto(posto.y)});
        }
    }
    for (std::size_t i = 0; i < prime.size(); ++i) {
        for (const Posto& posto : prime[i].posti) {
            if (posto.riquadro->meta == nullptr) continue;
            const QRectF q(bordi.left(), alto(posto.y), larghezza_ * punti,
                           posto.riquadro->altezza * punti);
            rimandi_.push_back({1 + static_cast<int>(i), q, dove.at(posto.riquadro->meta)});
        }
    }
}

bool Impaginatore::Scrivi(const QString& titolo, const QString& sottotitolo,
                          const QString& versione, QString& errore) {
    std::vector<Pagina> pagine, prime;
    if (!Disponi(pezzi_, pagine, errore)) return false;
    // The contents' own length moves what they tell: once to count its pages, once for good.
    std::vector<Riquadro> indice = Indice(pagine, 0);
    if (!Disponi(indice, prime, errore)) return false;
    const int davanti = 1 + static_cast<int>(prime.size());
    indice = Indice(pagine, davanti);
    prime.clear();
    if (!Disponi(indice, prime, errore)) return false;

    QPainter p;
    if (!p.begin(&carta_)) {
        errore = QStringLiteral("file non scritto");
        return false;
    }
    p.setRenderHint(QPainter::LosslessImageRendering);
    const auto scritta = [&](const QString& testo, double y, double corpo, bool grassetto,
                             int dove) {
        p.setFont(Carattere("DejaVu Sans", corpo, grassetto));
        p.drawText(QRectF(0.0, y, larghezza_, Mm(20.0)), dove | Qt::AlignTop, testo);
    };
    int numero = 1;
    const auto piede = [&] {
        p.setPen(QColor(90, 98, 110));
        scritta(QString::number(numero++), altezza_ - Mm(6.0), 8.5, false, Qt::AlignHCenter);
        p.setPen(Qt::black);
    };
    p.fillRect(QRectF(0.0, Mm(62.0), larghezza_, Mm(1.2)), kBlu);
    p.setPen(kBlu);
    scritta(titolo, Mm(40.0), 30.0, true, Qt::AlignLeft);
    p.setPen(Qt::black);
    scritta(sottotitolo, Mm(68.0), 14.0, false, Qt::AlignLeft);
    scritta(QStringLiteral("Manuale"), Mm(82.0), 14.0, false, Qt::AlignLeft);
    scritta(versione, altezza_ - Mm(30.0), 10.0, false, Qt::AlignLeft);
    piede();
    const auto stampa = [&](const std::vector<Pagina>& insieme) {
        for (const Pagina& pagina : insieme) {
            carta_.newPage();
            p.setPen(QColor(90, 98, 110));
            scritta(pagina.capitolo, 0.0, 8.5, false, Qt::AlignLeft);
            scritta(titolo, 0.0, 8.5, false, Qt::AlignRight);
            p.setPen(QPen(kRiga, Mm(0.2)));
            p.drawLine(QPointF(0.0, Mm(5.5)), QPointF(larghezza_, Mm(5.5)));
            p.setPen(Qt::black);
            for (const Posto& posto : pagina.posti) {
                posto.riquadro->disegna(p, QPointF(0.0, posto.y));
            }
            piede();
        }
    };
    stampa(prime);
    stampa(pagine);
    if (!p.end()) {
        errore = QStringLiteral("file non scritto");
        return false;
    }
    Segna(prime, pagine);
    return true;
}

}  // namespace tk07::manuale
