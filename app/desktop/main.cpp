#include <QApplication>

#include "desktop/programma_gui.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    return tk07::EseguiGui(app, QCoreApplication::arguments());
}
