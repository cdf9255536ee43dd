// Unit converter:
// "|primcipale=1|uniprinctesto=daN|categoriadiingresso=4|valoreingresso=12|fileout=F|titolo=T|".

#include <QApplication>

#include "desktop/finestra_kx.h"
#include "desktop/programma_gui.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    tk07::desktop::PreparaApplicazione(app);
    const QString riga = QCoreApplication::arguments().mid(1).join(QLatin1Char(' '));
    tk07::desktop::FinestraKx finestra(tk07::desktop::LeggiRichiestaKx(riga.toStdString()));
    return finestra.exec() == QDialog::Accepted ? 0 : 1;
}
