#include "desktop/in_corsa.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QLockFile>

#include "base/file_testo.h"
#include "desktop/testo_qt.h"

namespace tk07::desktop {

namespace {

constexpr const char* kInizio = "TK07_in_corso_";

// The lock that the system holds for a living program decides, not the age of the file nor the
// number of its process, which another program may have by now.
void SoloIlSistema(QLockFile& f) { f.setStaleLockTime(1); }

}  // namespace

InCorsa::InCorsa(const std::string& dirTemp) {
    const QDir dir(Q(PercorsoPiattaforma(dirTemp)));
    const QString inizio = QString::fromUtf8(kInizio);
    for (const QString& nome : dir.entryList({inizio + QLatin1Char('*')}, QDir::Files)) {
        QLockFile altro(dir.filePath(nome));
        SoloIlSistema(altro);
        if (altro.tryLock(0)) interrotta_ = true;  // unlocked, and removed, with the object
    }
    const QString segno =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMddHHmmsszzz")) +
        QLatin1Char('p') + QString::number(QCoreApplication::applicationPid());
    segno_ = std::make_unique<QLockFile>(dir.filePath(inizio + segno));
    SoloIlSistema(*segno_);
    segno_->tryLock(0);
}

InCorsa::~InCorsa() = default;

// The program ends without giving the lock back: the file stays.
void InCorsa::LasciaIlSegno() { static_cast<void>(segno_.release()); }

}  // namespace tk07::desktop
