#include "desktop/system/NameLookup.h"

#include <netdb.h>

#include <string>

namespace linealis::desktop {

namespace {

constexpr int millisecondsBetweenLooks = 20;

QList<QHostAddress> AddressesOf(const addrinfo* found)
{
    QList<QHostAddress> addresses;
    for (; found != nullptr; found = found->ai_next) {
        addresses << QHostAddress(found->ai_addr);
    }
    return addresses;
}

}  // namespace

/// The memory that the resolver reads and writes until it is done.
struct NameLookup::Request {
    explicit Request(const QString& theHost) : host(theHost.toStdString())
    {
        hints.ai_socktype = SOCK_STREAM;
        block.ar_name = host.c_str();
        block.ar_request = &hints;
    }
    ~Request()
    {
        if (block.ar_result != nullptr) {
            ::freeaddrinfo(block.ar_result);
        }
    }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    std::string host;
    addrinfo hints{};
    gaicb block{};
};

NameLookup::NameLookup(const QString& host, QObject* parent)
    : QObject(parent), request(std::make_unique<Request>(host))
{
    gaicb* block = &request->block;
    ::getaddrinfo_a(GAI_NOWAIT, &block, 1, nullptr);
    connect(&timer, &QTimer::timeout, this, &NameLookup::Look);
    timer.start(millisecondsBetweenLooks);
}

NameLookup::~NameLookup()
{
    const int result = ::gai_cancel(&request->block);
    if (result == EAI_NOTCANCELED) {
        // The resolver is still working and may write to the request, so leak it. This happens at most once per
        // run, because the program looks up only one name.
        [[maybe_unused]] const Request* const left = request.release();
    }
}

void NameLookup::Look()
{
    const int result = ::gai_error(&request->block);
    if (result == EAI_INPROGRESS) {
        return;
    }
    timer.stop();
    emit Found(result == 0 ? AddressesOf(request->block.ar_result) : QList<QHostAddress>());
}

}  // namespace linealis::desktop
