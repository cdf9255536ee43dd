#include "desktop/tema.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

#include "base/file_testo.h"
#include "base/testo.h"

namespace tk07::desktop {

namespace {

constexpr const char* kTesti[] = {"sistema", "chiaro", "scuro"};

}  // namespace

Tema LeggiTema(const std::string& file) {
    const FileLetto f = LeggiRighe(file);
    for (const Tema t : {Tema::chiaro, Tema::scuro}) {
        if (f.riuscito && !f.righe.empty() && Taglia(f.righe[0]) == kTesti[static_cast<int>(t)]) {
            return t;
        }
    }
    return Tema::sistema;
}

void RicordaTema(const std::string& file, Tema tema) {
    ScriviFile(file, std::string(kTesti[static_cast<int>(tema)]) + "\n", Codifica::utf8);
}

QPalette TavolozzaScura() {
    const QColor fondo(48, 49, 54), base(30, 31, 34), testo(235, 235, 235), spento(140, 140, 145);
    QPalette p(QColor(66, 68, 74), fondo);
    p.setColor(QPalette::Base, base);
    p.setColor(QPalette::AlternateBase, QColor(40, 41, 45));
    for (const auto ruolo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        p.setColor(ruolo, testo);
        p.setColor(QPalette::Disabled, ruolo, spento);
    }
    p.setColor(QPalette::PlaceholderText, QColor(165, 165, 170));
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::ToolTipBase, QColor(66, 68, 74));
    p.setColor(QPalette::ToolTipText, testo);
    p.setColor(QPalette::Highlight, QColor(42, 110, 190));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, QColor(110, 180, 255));
    return p;
}

void ApplicaTema(Tema tema) {
    if (tema == Tema::sistema) {
        QApplication::setPalette(QPalette());
        return;
    }
    // The one style that takes every colour of a palette.
    if (QApplication::style()->objectName() != QLatin1String("fusion")) {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    }
    if (tema == Tema::scuro) {
        QApplication::setPalette(TavolozzaScura());
        return;
    }
    QPalette chiara(QColor(239, 239, 239));
    chiara.setColor(QPalette::Highlight, QColor(48, 140, 198));
    chiara.setColor(QPalette::HighlightedText, Qt::white);
    chiara.setColor(QPalette::PlaceholderText, QColor(110, 110, 110));
    QApplication::setPalette(chiara);
}

}  // namespace tk07::desktop
