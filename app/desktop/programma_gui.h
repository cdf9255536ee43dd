#pragma once

#include <QApplication>
#include <QString>
#include <functional>
#include <string>

#include "base/direttori.h"

namespace tk07::desktop {

// The application: an exception that a window lets through is told and the joint saved aside
// (`guasto`), and the windows go on.
class Applicazione : public QApplication {
    Q_OBJECT

  public:
    using QApplication::QApplication;
    bool notify(QObject* oggetto, QEvent* evento) override;
    std::function<void(const std::string& cosa)> guasto;
};

// Font, Italian texts of the standard buttons and dialogs. Once, before the first window.
void PreparaApplicazione(QApplication& app);
// The command line as the session's start-up takes it: --diroot DIR, --lavoro NOME, the marked
// field.
Avvio LeggiRigaComando(const QStringList& argomenti);
// The joint file named on the command line, absolute; empty when there is none.
std::string FileDaAprire(const QStringList& argomenti);

// The whole run: start-up, windows, end. Returns the exit code.
int EseguiGui(QApplication& app, const QStringList& argomenti);

}  // namespace tk07::desktop
