#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tk07::manuale {

// A piece of a chapter. The Markdown of the manual is a subset: headings, paragraphs, lists of one
// level, fenced code, tables with a head, and figures alone on their line. What is inside a
// paragraph, an item or a cell stays Markdown.
struct Blocco {
    enum class Tipo { titolo, testo, voce, codice, tabella, figura };
    Tipo tipo = Tipo::testo;
    int livello = 0;           // of a heading, from 1
    QString testo;             // a figure's caption; a code's lines
    QString segno;             // bullet or number of an item
    QString file;              // of a figure, relative to the chapter
    QList<QStringList> righe;  // of a table, the head first
};

QList<Blocco> LeggiBlocchi(const QString& markdown);

}  // namespace tk07::manuale
