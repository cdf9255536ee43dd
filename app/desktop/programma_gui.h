#pragma once

#include <QString>

#include "base/direttori.h"

class QApplication;

namespace tk07::desktop {

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
