// A server of the test's own on the loopback, which serves a description of a release or something worse.
#pragma once

#include <QHostAddress>
#include <QMap>
#include <QNetworkProxyFactory>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QUrl>

class ReleaseServer {
public:
    ReleaseServer()
    {
        QNetworkProxyFactory::setUseSystemConfiguration(false); // what the machine has set is not for the loopback
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this] { Accept(); });
        if (!server.listen(QHostAddress::LocalHost))
            qFatal("cannot listen on the loopback");
    }

    /// What a path answers, byte by byte; the connection is closed behind it. A path without an answer gets none, and
    /// keeps its connection.
    QMap<QString, QByteArray> answers;

    /// What is written again and again behind an answer, in place of closing.
    QByteArray endless;

    QByteArrayList requests; ///< each as it came in, without a body

    QUrl Url(const QString& path = "/release.json", const QString& host = "127.0.0.1") const
    {
        return QUrl("http://" + host + ":" + QString::number(server.serverPort()) + path);
    }

    qsizetype Connections() const { return server.findChildren<QTcpSocket*>().size(); }

    /// Answers the requests that were left waiting.
    void AnswerWaiting(const QByteArray& answer)
    {
        for (QTcpSocket* socket : server.findChildren<QTcpSocket*>())
            Answer(*socket, answer);
    }

private:
    void Accept()
    {
        QTcpSocket* socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            const QByteArray request = socket->peek(1 << 16);
            if (!request.contains("\r\n\r\n"))
                return;
            requests.append(socket->readAll());
            const QString path = QString(request.split(' ').value(1));
            if (answers.contains(path))
                Answer(*socket, answers.value(path));
        });
    }

    void Answer(QTcpSocket& socket, const QByteArray& answer)
    {
        socket.write(answer);
        if (endless.isEmpty())
            return socket.disconnectFromHost();
        auto* writer = new QTimer(&socket);
        QObject::connect(writer, &QTimer::timeout, &socket, [this, &socket] { socket.write(endless); });
        writer->start(20);
    }

    QTcpServer server;
};

inline QByteArray Response(const QByteArray& status, const QByteArray& body, const QByteArray& headers = {})
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" +
           body;
}

inline QByteArray Ok(const QByteArray& body)
{
    return Response("200 OK", body);
}

inline QByteArray Redirection(const QUrl& to)
{
    return Response("302 Found", "elsewhere", "Set-Cookie: seen=1\r\nLocation: " + to.toEncoded() + "\r\n");
}
