#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tk07::desktop {

// A number as an Italian hand or spreadsheet writes it, in the form that the fields read: decimal
// point, no thousands, plain minus. "1.234,5" -> "1234.5", "12,5" -> "12.5", "1.234.567" ->
// "1234567". What is no such number comes back unchanged.
QString NumeroItaliano(const QString& testo);
// The same while it is being typed: a comma is the decimal separator, points before it were
// thousands.
QString VirgolaInPunto(const QString& testo);
// Whether the whole text is one number that the program can hold; an empty one is not.
bool SoloNumero(const QString& testo);
// Whether the leading number of a text can be held at all (any text without a number can).
bool NumeroNeiLimiti(const QString& testo);

// A text of load sets from the clipboard, made ready for the table.
struct SestettiIncollati {
    QList<QStringList> celle;  // rows of texts, as the cells take them
    int colonna = 0;           // first column of the table that they go to
    QString errore;            // why nothing can be pasted; then `celle` is empty
    QString nota;              // what was understood, for the status bar
    QString dubbio;            // a cell whose point could separate thousands, e.g. "1.500"
};
// Rows by line, columns by tab. Nothing is guessed in silence: heads are left out and said, a
// block of six numbers stands for the six actions, and any other text where a number must be is an
// error. `colonna` is where the paste was asked for; 0 is the description, 1 to 6 the actions, 7
// the load case. `propria` says that the text comes from this table.
SestettiIncollati PreparaSestetti(const QString& testo, int colonna, bool propria);

}  // namespace tk07::desktop
