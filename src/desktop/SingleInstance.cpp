#include "desktop/SingleInstance.h"

#include "platform/OwnUser.h"

#include <QDataStream>
#include <QElapsedTimer>
#include <QLocalSocket>
#include <QThread>

namespace linealis::desktop {

namespace {

constexpr int millisecondsInAll = 1000;
constexpr qint64 longestMessage = 1 << 20;
constexpr char acknowledgement = 'k';

bool IsOwn(const QLocalSocket& socket)
{
    return PeerIsOwnUser(static_cast<int>(socket.socketDescriptor()));
}

/// Reads the files, once all have come. Returns whether they have.
bool ReadFiles(QLocalSocket& socket, QStringList& files)
{
    QDataStream stream(&socket);
    stream.startTransaction();
    stream >> files;
    return stream.commitTransaction();
}

}  // namespace

SingleInstance::SingleInstance(const QString& folder, const QString& name, QObject* parent)
    : QObject(parent), path(folder.isEmpty() ? QString() : folder + QLatin1Char('/') + name)
{
    server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server, &QLocalServer::newConnection, this, &SingleInstance::Accept);
}

bool SingleInstance::HandOver(const QStringList& files)
{
    if (path.isEmpty()) {
        return false;
    }
    lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
    lock->setStaleLockTime(0);  // as long as its process lives
    QElapsedTimer time;
    time.start();
    do {
        if (lock->tryLock(0)) {
            Listen();
            return false;
        }
        if (Ask(files)) {
            return true;
        }
        QThread::msleep(20);  // it may be about to listen, or to end
    } while (time.elapsed() < millisecondsInAll);
    return false;
}

bool SingleInstance::Ask(const QStringList& files) const
{
    QLocalSocket socket;
    socket.connectToServer(path);
    if (!socket.waitForConnected(millisecondsInAll) || !IsOwn(socket)) {
        return false;
    }
    QByteArray message;
    QDataStream stream(&message, QIODevice::WriteOnly);
    stream << files;
    socket.write(message);
    socket.flush();
    // Only an answer shows that the other program is alive.
    return socket.waitForReadyRead(millisecondsInAll) && socket.read(1) == QByteArray(1, acknowledgement);
}

void SingleInstance::Listen()
{
    QLocalServer::removeServer(path);  // what a killed program left behind
    server.listen(path);
}

void SingleInstance::Accept()
{
    while (QLocalSocket* const socket = server.nextPendingConnection()) {
        socket->setReadBufferSize(longestMessage);
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (!IsOwn(*socket)) {
            socket->abort();
            continue;
        }
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            QStringList files;
            if (ReadFiles(*socket, files)) {
                socket->write(QByteArray(1, acknowledgement));
                socket->flush();
                emit Received(files);
            }
        });
    }
}

}  // namespace linealis::desktop
