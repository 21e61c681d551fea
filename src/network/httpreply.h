#pragma once

#include <QtNetwork/QNetworkReply>

#include <curl/curl.h>
#include <memory>

class HttpTransfers;
class QNetworkCookieJar;

/// What comes of a GET over plain HTTP. The whole body is there, unpacked, when finished() is emitted. A
/// header longer than 256 kB or a body longer than 256 MB is an error, and there is no body then. Errors of
/// the network are told in Qt's own words, and finished() follows them at once. The header is not kept.
class HttpReply : public QNetworkReply
{
    Q_OBJECT

public:
    /// Begins the transfer. Cookies are taken from and put into @p cookies, which has to outlive this.
    HttpReply(const QNetworkRequest &request, std::shared_ptr<HttpTransfers> transfers,
              QNetworkCookieJar &cookies, QObject *parent);
    ~HttpReply() override;

    void abort() override;
    qint64 bytesAvailable() const override;

    /// libcurl's handle of the transfer, owned by this.
    CURL *transfer() const;

    /// For HttpTransfers: the transfer has ended like this.
    void complete(CURLcode outcome);

protected:
    qint64 readData(char *data, qint64 maxSize) override;

private:
    static std::size_t takeHeader(const char *data, std::size_t size, std::size_t count, void *reply);
    static std::size_t takeBody(const char *data, std::size_t size, std::size_t count, void *reply);

    void setUpTransfer();
    void addHeader(const QByteArray &line);
    const char *unpack();
    void failWith(CURLcode outcome);
    void fail(NetworkError code, const QString &message);
    void finish();

    const std::shared_ptr<HttpTransfers> m_transfers;
    QNetworkCookieJar &m_cookies;
    std::unique_ptr<curl_slist, void (*)(curl_slist *)> m_headers; ///< outlives the transfer
    std::unique_ptr<CURL, void (*)(CURL *)> m_transfer;
    std::size_t m_headerSize = 0;
    int m_status = 0;
    QString m_reason; ///< of the status, in the server's words
    QByteArray m_body;
    qint64 m_position = 0; ///< up to which the body has been read
    bool m_isCompressed = false;
    const char *m_limitPassed = nullptr; ///< what is to be told of it
};
