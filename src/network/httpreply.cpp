#include "network/httpreply.h"

#include "network/httptransfers.h"
#include "network/inflate.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtNetwork/QNetworkCookie>
#include <QtNetwork/QNetworkCookieJar>

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

constexpr std::size_t longestHeader = 256 << 10;
constexpr int longestBody = 256 << 20; // more would not fit into the memory of many machines

const char headerTooLong[] =
    QT_TRANSLATE_NOOP("KestCommandProvider", "The header of the answer is too long.");
const char bodyTooLong[] = QT_TRANSLATE_NOOP("KestCommandProvider", "The answer is longer than 256 MB.");
const char bodyDamaged[] = QT_TRANSLATE_NOOP("KestCommandProvider", "The answer cannot be unpacked.");

constexpr int firstErrorStatus = 400;
constexpr int firstServerErrorStatus = 500;

struct Failure
{
    CURLcode outcome;
    QNetworkReply::NetworkError code;
    const char *text; ///< in Qt's words
};

const Failure failures[] = {
    {CURLE_URL_MALFORMAT, QNetworkReply::HostNotFoundError, "Host %1 not found"}, // there is no host in it
    {CURLE_COULDNT_RESOLVE_HOST, QNetworkReply::HostNotFoundError, "Host %1 not found"},
    {CURLE_COULDNT_CONNECT, QNetworkReply::ConnectionRefusedError, "Connection refused"},
    {CURLE_GOT_NOTHING, QNetworkReply::RemoteHostClosedError, "Connection closed"},
    {CURLE_PARTIAL_FILE, QNetworkReply::RemoteHostClosedError, "Connection closed"},
    {CURLE_RECV_ERROR, QNetworkReply::RemoteHostClosedError, "Connection closed"},
    {CURLE_SEND_ERROR, QNetworkReply::RemoteHostClosedError, "Connection closed"},
    {CURLE_UNSUPPORTED_PROTOCOL, QNetworkReply::RemoteHostClosedError,
     "Connection closed"}, // no answer of HTTP
    {CURLE_WEIRD_SERVER_REPLY, QNetworkReply::RemoteHostClosedError, "Connection closed"},
};

QString translated(const char *text)
{
    return QCoreApplication::translate("KestCommandProvider", text);
}

/// What QNetworkAccessManager adds to a request by itself.
const QByteArrayList &usualHeaders()
{
    static const QByteArrayList headers = [] {
        const QString locale = QLocale::system().name().replace(QLatin1Char('_'), QLatin1Char('-'));
        const QString languages =
            locale == QLatin1String("C") ? QStringLiteral("en,*") : locale + QLatin1String(",en,*");
        return QByteArrayList{"Accept:", "Accept-Encoding: gzip, deflate",
                              "Accept-Language: " + languages.toLatin1(), "User-Agent: Mozilla/5.0"};
    }();
    return headers;
}

/// Whether a line of a header is that of a field. @p name ends with the colon.
bool isField(const QByteArray &line, const char *name)
{
    return qstrnicmp(line.constData(), name, static_cast<uint>(qstrlen(name))) == 0;
}

QByteArray cookieHeader(const QList<QNetworkCookie> &cookies)
{
    QByteArrayList pairs;
    for (const QNetworkCookie &cookie : cookies)
        pairs.append(cookie.toRawForm(QNetworkCookie::NameAndValueOnly));
    return "Cookie: " + pairs.join("; ");
}

} // namespace

HttpReply::HttpReply(const QNetworkRequest &request, std::shared_ptr<HttpTransfers> transfers,
                     QNetworkCookieJar &cookies, QObject *parent)
    : QNetworkReply(parent)
    , m_transfers(std::move(transfers))
    , m_cookies(cookies)
    , m_headers(nullptr, curl_slist_free_all)
    , m_transfer(curl_easy_init(), curl_easy_cleanup)
{
    setRequest(request);
    setUrl(request.url());
    setOperation(QNetworkAccessManager::GetOperation);
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    setUpTransfer();
    m_transfers->add(*this);
}

HttpReply::~HttpReply()
{
    m_transfers->remove(*this);
}

void HttpReply::abort()
{
    if (isFinished())
        return;
    m_transfers->remove(*this);
    close();
    fail(OperationCanceledError, QCoreApplication::translate("QNetworkReplyHttpImpl", "Operation canceled"));
    finish();
}

qint64 HttpReply::bytesAvailable() const
{
    return QNetworkReply::bytesAvailable() + m_body.size() - m_position;
}

CURL *HttpReply::transfer() const
{
    return m_transfer.get();
}

void HttpReply::complete(CURLcode outcome)
{
    const char *const unpackingProblem = unpack();
    if (outcome != CURLE_OK)
        failWith(outcome);
    else if (m_status >= firstErrorStatus)
        fail(m_status < firstServerErrorStatus ? UnknownContentError : UnknownServerError,
             QCoreApplication::translate("QNetworkReply", "Error transferring %1 - server replied: %2")
                 .arg(url().toString(), m_reason));
    else if (unpackingProblem)
        fail(UnknownContentError, translated(unpackingProblem));
    finish();
}

qint64 HttpReply::readData(char *data, qint64 maxSize)
{
    const qint64 size = std::min(maxSize, m_body.size() - m_position);
    if (size == 0 && isFinished())
        return -1;
    std::memcpy(data, m_body.constData() + m_position, static_cast<std::size_t>(size));
    m_position += size;
    return size;
}

std::size_t HttpReply::takeHeader(const char *data, std::size_t size, std::size_t count, void *reply)
{
    auto *self = static_cast<HttpReply *>(reply);
    const std::size_t length = size * count;
    self->m_headerSize += length;
    if (self->m_headerSize > longestHeader) {
        self->m_limitPassed = headerTooLong;
        return 0; // ends the transfer
    }
    self->addHeader(QByteArray(data, static_cast<int>(length)).trimmed());
    return length;
}

std::size_t HttpReply::takeBody(const char *data, std::size_t size, std::size_t count, void *reply)
{
    auto *self = static_cast<HttpReply *>(reply);
    const std::size_t length = size * count;
    if (length > static_cast<std::size_t>(longestBody - self->m_body.size())) {
        self->m_limitPassed = bodyTooLong;
        self->m_body.clear();
        return 0; // ends the transfer
    }
    self->m_body.append(data, static_cast<int>(length));
    return length;
}

void HttpReply::setUpTransfer()
{
    const auto set = [this](CURLoption option, auto value) {
        curl_easy_setopt(m_transfer.get(), option, value);
    };
    QByteArrayList headers = usualHeaders();
    const QList<QNetworkCookie> cookies = m_cookies.cookiesForUrl(url());
    if (!cookies.isEmpty())
        headers.append(cookieHeader(cookies));
    for (const QByteArray &header : qAsConst(headers))
        m_headers.reset(curl_slist_append(m_headers.release(), header.constData()));

    set(CURLOPT_URL, url().toEncoded(QUrl::RemoveFragment).constData());
    set(CURLOPT_PROTOCOLS_STR, "http");
    set(CURLOPT_PATH_AS_IS, 1L);
    set(CURLOPT_PROXY, ""); // whatever the environment says
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(std::numeric_limits<int>::max())); // the system's own
    set(CURLOPT_QUICK_EXIT, 1L); // an abort does not wait for the answer of a name server
    set(CURLOPT_HTTPHEADER, m_headers.get());
    set(CURLOPT_PRIVATE, this);
    set(CURLOPT_HEADERFUNCTION, &HttpReply::takeHeader);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_WRITEFUNCTION, &HttpReply::takeBody);
    set(CURLOPT_WRITEDATA, this);
}

void HttpReply::addHeader(const QByteArray &line)
{
    if (line.startsWith("HTTP/")) {
        // Version, status, reason; the latter may be missing, or have blanks.
        m_status = line.mid(line.indexOf(' ') + 1).left(3).toInt();
        m_isCompressed = false; // the lines before may have been those of an interim answer
        m_reason = QString::fromLatin1(line).section(QLatin1Char(' '), 2);
    } else if (isField(line, "Content-Encoding:")) {
        const QByteArray encoding = line.mid(line.indexOf(':') + 1).trimmed().toLower();
        m_isCompressed = encoding == "gzip" || encoding == "deflate";
    } else if (isField(line, "Set-Cookie:")) {
        m_cookies.setCookiesFromUrl(QNetworkCookie::parseCookies(line.mid(line.indexOf(':') + 1)), url());
    }
}

const char *HttpReply::unpack()
{
    if (!m_isCompressed)
        return nullptr;
    InflatedBody inflated = inflateBody(m_body, longestBody);
    m_body = std::move(inflated.body);
    switch (inflated.end) {
    case InflatedBody::End::TooLong:
        return bodyTooLong;
    case InflatedBody::End::Damaged:
        return bodyDamaged;
    case InflatedBody::End::Whole:
        break;
    }
    return nullptr;
}

void HttpReply::failWith(CURLcode outcome)
{
    const auto failure = std::find_if(std::begin(failures), std::end(failures),
                                      [outcome](const Failure &f) { return f.outcome == outcome; });
    if (failure != std::end(failures)) {
        const QString message = QCoreApplication::translate("QHttp", failure->text);
        fail(failure->code, failure->code == HostNotFoundError ? message.arg(url().host()) : message);
        return;
    }
    // libcurl is out of memory, so to speak, if one line of the header is longer than 100 kB.
    const char *const limit = outcome == CURLE_OUT_OF_MEMORY ? headerTooLong : m_limitPassed;
    fail(UnknownNetworkError, limit ? translated(limit) : QString::fromUtf8(curl_easy_strerror(outcome)));
}

void HttpReply::fail(NetworkError code, const QString &message)
{
    setError(code, message);
    emit error(code);
}

void HttpReply::finish()
{
    setFinished(true);
    if (m_position < m_body.size() && isOpen())
        emit readyRead();
    emit finished();
}
