#include "finestre/finestra_file.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QTime>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "guscio/programma.h"

namespace tk07 {

namespace {

constexpr int kAttesaMs = 120;

}  // namespace

FinestraFile::FinestraFile(const QString& prefisso) : prefisso_(prefisso) {
    centro_ = new QWidget(this);
    auto* colonna = new QVBoxLayout(centro_);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(0);
    avviso_ = new QLabel(centro_);
    avviso_->setObjectName("Avviso");
    avviso_->setWordWrap(true);
    avviso_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    avviso_->setStyleSheet("background:#b3261e; color:white; padding:6px 10px;");
    avviso_->hide();
    colonna->addWidget(avviso_);
    setCentralWidget(centro_);
    setWindowTitle(QString(prefisso).chopped(3));
    setAcceptDrops(true);
    barra_ = addToolBar("Comandi");
    barra_->setMovable(false);
    attesa_.setSingleShot(true);
    attesa_.setInterval(kAttesaMs);
    connect(&attesa_, &QTimer::timeout, this, [this] { ControllaFile(); });
    for (const auto segnale :
         {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged}) {
        connect(&guardia_, segnale, this, [this] { attesa_.start(); });
    }
}

void FinestraFile::MettiVista(QWidget* vista) {
    static_cast<QVBoxLayout*>(centro_->layout())->addWidget(vista, 1);
}

QAction* FinestraFile::Voce(QMenu* menu, const QString& testo,
                            const std::vector<QKeySequence>& tasti, const char* aiuto, Dove dove,
                            std::function<void()> fai) {
    auto* a = new QAction(testo, this);
    a->setShortcuts(QList<QKeySequence>(tasti.begin(), tasti.end()));
    QString suggerimento = QString::fromUtf8(aiuto);
    if (!tasti.empty()) suggerimento += " (" + tasti[0].toString(QKeySequence::NativeText) + ")";
    a->setToolTip(suggerimento);
    a->setStatusTip(QString::fromUtf8(aiuto));
    menu->addAction(a);
    if (dove == Dove::menuEBarra) barra_->addAction(a);
    if (fai) connect(a, &QAction::triggered, this, [fai = std::move(fai)] { fai(); });
    return a;
}

void FinestraFile::Avvisa(const QString& testo) {
    avviso_->setText(testo);
    avviso_->setVisible(!testo.isEmpty());
}

QString FinestraFile::FileInteso(const QString& argomento, QString&) const {
    return QString::fromStdString(PercorsoAssoluto(argomento.toStdString()));
}

bool FinestraFile::Apri(const QString& argomento) {
    QString errore;
    const QString nome = FileInteso(argomento, errore);
    if (nome.isEmpty()) {
        Avvisa(errore);
        return false;
    }
    const QString prima = std::exchange(file_, nome);
    const bool letto = Ricarica();
    if (!letto && mostrato_) {  // what is on show keeps its name
        file_ = prima;
        Sorveglia();
        return false;
    }
    // The mark that the toolkit takes for "changed" stands for itself in a file's name.
    setWindowTitle(prefisso_ + QString(file_).replace("[*]", "[*][*]"));
    Aperto(letto);
    return letto;
}

bool FinestraFile::Ricarica() {
    if (file_.isEmpty()) return false;
    const QFileInfo info(file_);
    dataLetta_ = info.lastModified();
    grandezzaLetta_ = info.size();
    Sorveglia();
    QString errore;
    if (!Leggi(file_, errore)) {
        Avvisa(errore);
        return false;
    }
    Avvisa({});
    mostrato_ = true;
    statusBar()->showMessage("Letto alle " + QTime::currentTime().toString("HH:mm:ss"), 4000);
    return true;
}

// The file is replaced by renaming another over it, which ends the watch on it; its directory tells
// of the new one.
void FinestraFile::Sorveglia() {
    const QFileInfo info(file_);
    QStringList vuole{info.absolutePath()};
    if (info.exists()) vuole << file_;
    const QStringList ha = guardia_.files() + guardia_.directories();
    for (const QString& v : ha) {
        if (!vuole.contains(v)) guardia_.removePath(v);
    }
    for (const QString& v : vuole) {
        if (!ha.contains(v) && QFileInfo::exists(v)) guardia_.addPath(v);
    }
}

void FinestraFile::ControllaFile() {
    const QFileInfo info(file_);
    if (!info.exists()) return;  // between two versions
    const bool sostituito = !guardia_.files().contains(file_);
    if (sostituito || info.lastModified() != dataLetta_ || info.size() != grandezzaLetta_) {
        Ricarica();
    }
}

void FinestraFile::dragEnterEvent(QDragEnterEvent* e) {
    if (e->mimeData()->hasUrls()) e->acceptProposedAction();
}

void FinestraFile::dropEvent(QDropEvent* e) {
    const QList<QUrl> nomi = e->mimeData()->urls();
    if (!nomi.isEmpty() && nomi[0].isLocalFile()) Apri(nomi[0].toLocalFile());
}

}  // namespace tk07
