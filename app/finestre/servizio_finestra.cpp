#include "finestre/servizio_finestra.h"

#include <QCryptographicHash>
#include <QLocalSocket>

namespace tk07 {

namespace {

constexpr int kAttesa = 500;  // ms

// Titles are long and hold what names of local sockets may not.
QString NomeServizio(const QString& titolo) {
    const QByteArray impronta =
        QCryptographicHash::hash(titolo.toUtf8(), QCryptographicHash::Sha1).toHex();
    return QStringLiteral("tk07-") + QString::fromLatin1(impronta);
}

}  // namespace

ServizioFinestra::ServizioFinestra(std::function<void(const QString&)> alComando, QObject* padre)
    : QObject(padre), alComando_(std::move(alComando)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* s = server_.nextPendingConnection()) {
            connect(s, &QLocalSocket::disconnected, s, &QObject::deleteLater);
            connect(s, &QLocalSocket::readyRead, this, [this, s] {
                while (s->canReadLine()) alComando_(QString::fromUtf8(s->readLine()).trimmed());
            });
        }
    });
}

void ServizioFinestra::Ascolta(const QString& titolo) {
    const QString nome = NomeServizio(titolo);
    if (server_.isListening() && server_.serverName() == nome) return;
    server_.close();
    QLocalSocket prova;
    prova.connectToServer(nome);
    if (prova.waitForConnected(kAttesa)) return;
    QLocalServer::removeServer(nome);  // left by a process that was killed
    server_.listen(nome);
}

bool InviaAFinestra(const QString& titolo, const QString& comando) {
    QLocalSocket s;
    s.connectToServer(NomeServizio(titolo));
    if (!s.waitForConnected(kAttesa)) return false;
    s.write(comando.toUtf8() + '\n');
    const bool scritto = s.waitForBytesWritten(kAttesa);
    s.disconnectFromServer();
    return scritto;
}

}  // namespace tk07
