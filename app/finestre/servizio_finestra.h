#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>
#include <functional>

namespace tk07 {

// How one program finds and steers another's window by its title, on every platform alike: a window
// listens under its title, and whoever knows the title sends it commands. The user's own processes
// only.
class ServizioFinestra : public QObject {
  public:
    // `alComando` gets each command that comes in: "attiva", or keys such as "^v".
    ServizioFinestra(std::function<void(const QString& comando)> alComando, QObject* padre);
    // From now on under this title; a title that another window listens under is left to it.
    void Ascolta(const QString& titolo);

  private:
    QLocalServer server_;
    std::function<void(const QString&)> alComando_;
};

// Sends a command to the window of that title; false when there is none.
bool InviaAFinestra(const QString& titolo, const QString& comando);

}  // namespace tk07
