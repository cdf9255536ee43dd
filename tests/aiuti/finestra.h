#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QWidget>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "render/esporta.h"

namespace tk07::prova {

// The tests of a viewer run in one application: without a screen, unless a platform is named. Under
// X the same tests see what draws there.
class Applicazione : public ::testing::Environment {
  public:
    void SetUp() override {
        if (std::getenv("TK07_CON_X") != nullptr) std::strcpy(valore_, "xcb");
        qt_ = InSilenzio([this] { return std::make_unique<QApplication>(quanti_, argomenti_); });
        CaricaItaliano(*qt_);
    }
    void TearDown() override { qt_.reset(); }

  private:
    char nome_[6] = "prova", opzione_[10] = "-platform", valore_[10] = "offscreen";
    char* argomenti_[4] = {nome_, opzione_, valore_, nullptr};
    int quanti_ = 3;
    std::unique_ptr<QApplication> qt_;
};

// Events until `fatto`, at most some seconds.
template <class F>
bool Aspetta(F fatto) {
    QElapsedTimer t;
    t.start();
    while (!fatto() && t.elapsed() < 8000) QApplication::processEvents(QEventLoop::AllEvents, 20);
    return fatto();
}

// The mouse with its left button at a point of the widget.
inline void Topo(QWidget* w, QEvent::Type tipo, const QPointF& dove) {
    QMouseEvent e(tipo, dove, w->mapToGlobal(dove),
                  tipo == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                  Qt::NoModifier);
    QApplication::sendEvent(w, &e);
}

}  // namespace tk07::prova
