#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QKeySequence>
#include <QMainWindow>
#include <QString>
#include <QTimer>
#include <functional>
#include <vector>

class QAction;
class QLabel;
class QMenu;
class QToolBar;

namespace tk07 {

// The window of a viewer: one file, shown below a bar that tells what is wrong. The file is watched
// and read again when it changes; one that cannot be read leaves what is on show, title and all.
class FinestraFile : public QMainWindow {
  public:
    // `prefisso` comes before the file's name in the title, as in "Osserva3D - ".
    explicit FinestraFile(const QString& prefisso);

    bool Apri(const QString& argomento);
    bool Ricarica();
    void Avvisa(const QString& testo);  // empty: hides the bar

  protected:
    // Absolute name of the file that the argument means; empty with the reason in `errore`.
    virtual QString FileInteso(const QString& argomento, QString& errore) const;
    // Reads the file and shows it. False, with the text for the bar, when it cannot be read.
    virtual bool Leggi(const QString& file, QString& errore) = 0;
    // The window has a new file and its title.
    virtual void Aperto(bool letto) = 0;

    // Puts what draws under the bar; `qui` is the parent to make it with.
    QWidget* Centro() const { return centro_; }
    void MettiVista(QWidget* vista);

    // An entry of a menu and, if told, of the tool bar.
    enum class Dove { menu, menuEBarra };
    QAction* Voce(QMenu* menu, const QString& testo, const std::vector<QKeySequence>& tasti,
                  const char* aiuto, Dove dove, std::function<void()> fai = {});
    QToolBar* Barra() const { return barra_; }

    const QString& File() const { return file_; }
    bool Mostrato() const { return mostrato_; }  // something is on show

    void dragEnterEvent(QDragEnterEvent* e) override;
    void dropEvent(QDropEvent* e) override;

  private:
    void Sorveglia();
    void ControllaFile();

    QString prefisso_;
    QWidget* centro_;
    QLabel* avviso_;
    QToolBar* barra_;
    QFileSystemWatcher guardia_;
    QTimer attesa_;        // several signals of one change are one
    QString file_;         // absolute
    QDateTime dataLetta_;  // of the file on show
    qint64 grandezzaLetta_ = -1;
    bool mostrato_ = false;
};

}  // namespace tk07
