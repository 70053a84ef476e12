#include "desktop/system/SingleInstance.h"

#include "desktop/system/HandOverMessage.h"
#include "platform/OwnUser.h"

#include <QFile>
#include <QTimer>

namespace linealis::desktop {

namespace {

constexpr int millisecondsBeforeAWord = 1000;
constexpr int millisecondsBetweenTries = 50;
constexpr qint64 longestPiece = 65536;
constexpr char acknowledgement = 'k';

bool IsOwn(const QLocalSocket& socket)
{
    return PeerIsOwnUser(static_cast<int>(socket.socketDescriptor()));
}

std::string MessageOf(const QStringList& files, const QString& activationToken)
{
    StartRequest request;
    for (const QString& file : files) {
        request.files.push_back(QFile::encodeName(file).toStdString());
    }
    request.activationToken = activationToken.toStdString();
    return HandOverMessage(request);
}

QStringList FilesOf(const StartRequest& request)
{
    QStringList files;
    for (const std::string& name : request.files) {
        files << QFile::decodeName(name.c_str());
    }
    return files;
}

}  // namespace

SingleInstance::SingleInstance(const QString& folder, const QString& name, QObject* parent)
    : QObject(parent), path(folder.isEmpty() ? QString() : folder + QLatin1Char('/') + name)
{
    server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server, &QLocalServer::newConnection, this, &SingleInstance::Accept);
}

SingleInstance::Start SingleInstance::HandOver(const QStringList& files, const QString& activationToken,
                                               const std::function<void()>& onWaiting)
{
    if (path.isEmpty()) {
        return Start::First;
    }
    lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
    lock->setStaleLockTime(0);  // a lock is valid as long as its process lives, however old it is
    if (lock->tryLock(0)) {
        Listen();
        return Start::First;
    }
    if (lock->error() != QLockFile::LockFailedError) {
        return Start::First;  // no lock can be created in this folder, so no other program holds it
    }
    message = MessageOf(files, activationToken);
    QTimer tries, word;
    connect(&tries, &QTimer::timeout, this, &SingleInstance::TryAgain);
    connect(&word, &QTimer::timeout, this, [&] { onWaiting(); });
    word.setSingleShot(true);
    word.start(millisecondsBeforeAWord);
    tries.start(millisecondsBetweenTries);
    Ask();
    waiting.exec();
    socket.reset();
    return outcome;
}

void SingleInstance::Cancel()
{
    EndWith(Start::Canceled);
}

/// The running program may have ended, so try to take its place; or it may not have been listening yet, so ask
/// again.
void SingleInstance::TryAgain()
{
    if (lock->tryLock(0)) {
        Listen();
        EndWith(Start::First);
    } else if (socket->state() == QLocalSocket::UnconnectedState) {
        Ask();
    }
}

void SingleInstance::Ask()
{
    socket = std::make_unique<QLocalSocket>();
    connect(socket.get(), &QLocalSocket::connected, this, [this] {
        if (IsOwn(*socket)) {
            socket->write(message.data(), static_cast<qint64>(message.size()));
        } else {
            socket->abort();
        }
    });
    // A connection alone does not show that the other program responds; only its answer does.
    connect(socket.get(), &QLocalSocket::readyRead, this, [this] {
        if (socket->read(1) == QByteArray(1, acknowledgement)) {
            EndWith(Start::HandedOver);
        }
    });
    socket->connectToServer(path);
}

void SingleInstance::EndWith(Start result)
{
    outcome = result;
    waiting.quit();
}

void SingleInstance::Listen()
{
    QLocalServer::removeServer(path);  // a socket that a killed program left behind
    if (!server.listen(path)) {
        lock->unlock();  // later starts cannot reach this program, so they must not wait for it
    }
}

void SingleInstance::Accept()
{
    while (QLocalSocket* const asking = server.nextPendingConnection()) {
        asking->setReadBufferSize(longestPiece);
        connect(asking, &QLocalSocket::disconnected, asking, &QObject::deleteLater);
        if (!IsOwn(*asking)) {
            asking->abort();
            continue;
        }
        connect(asking, &QLocalSocket::readyRead, this, [this, asking, reader = HandOverReader()]() mutable {
            const bool wasWhole = reader.IsWhole();
            const QByteArray piece = asking->readAll();
            reader.Add({piece.data(), static_cast<std::size_t>(piece.size())});
            if (reader.IsTooLong()) {
                asking->abort();
            } else if (reader.IsWhole() && !wasWhole) {
                asking->write(QByteArray(1, acknowledgement));
                if (asking->flush()) {  // otherwise the other start has been canceled
                    emit Received(FilesOf(reader.Request()),
                                  QString::fromStdString(reader.Request().activationToken));
                }
            }
        });
    }
}

}  // namespace linealis::desktop
