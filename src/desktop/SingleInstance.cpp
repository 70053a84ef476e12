#include "desktop/SingleInstance.h"

#include <QDataStream>
#include <QLocalSocket>

namespace linealis::desktop {

namespace {

constexpr int millisecondsToConnect = 500;
constexpr int millisecondsToAnswer = 5000;
constexpr qint64 longestMessage = 1 << 20;
constexpr char acknowledgement = 'k';

}  // namespace

SingleInstance::SingleInstance(const QString& name, QObject* parent)
    : QObject(parent), serverName(name + QLatin1Char('-') + qEnvironmentVariable("USER"))
{
    server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server, &QLocalServer::newConnection, this, &SingleInstance::Receive);
}

bool SingleInstance::HandOver(const QStringList& files) const
{
    QLocalSocket socket;
    socket.connectToServer(serverName);
    if (!socket.waitForConnected(millisecondsToConnect)) {
        return false;
    }
    QByteArray message;
    QDataStream stream(&message, QIODevice::WriteOnly);
    stream << files;
    socket.write(message);
    socket.flush();
    // Only an answer shows that the other program is alive.
    return socket.waitForReadyRead(millisecondsToAnswer) && socket.read(1) == QByteArray(1, acknowledgement);
}

void SingleInstance::Listen()
{
    QLocalServer::removeServer(serverName);  // what a killed program left behind
    server.listen(serverName);
}

void SingleInstance::Receive()
{
    while (QLocalSocket* const socket = server.nextPendingConnection()) {
        socket->setReadBufferSize(longestMessage);
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            QDataStream stream(socket);
            stream.startTransaction();
            QStringList files;
            stream >> files;
            if (!stream.commitTransaction()) {
                return;  // more is to come
            }
            socket->write(QByteArray(1, acknowledgement));
            socket->flush();
            emit Received(files);
        });
    }
}

}  // namespace linealis::desktop
