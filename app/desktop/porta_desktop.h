#pragma once

#include <QString>
#include <functional>

#include "base/piattaforma.h"

class QWidget;

namespace tk07::desktop {

// The session's port on the desktop: real boxes, dialogs and programs.
//   finestra       the window that boxes belong to when no other is active
//   mostraTesto    shows a report in the program's own viewer
//   cerca          the search for members (false) or nodes (true) on the model, in a window
Piattaforma PortaDesktop(const std::function<QWidget*()>& finestra,
                         const std::function<void(const QString& percorso)>& mostraTesto,
                         const std::function<void(bool nodi, QWidget* padre)>& cerca);

// A dialog's filters "description|pattern|..." in the toolkit's form.
QString FiltroQt(const std::string& filtro);

}  // namespace tk07::desktop
