#pragma once

#include <QByteArray>
#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>

// A tiny HTTP server on 127.0.0.1 for the download tests: each path answers in one way,
// including the ways real servers fail. Only this process talks to it.
class TestHttpServer : public QObject {
  public:
    enum Mode { Serve, NotFound, Stall, Truncate, Redirect };
    struct Route {
        Mode mode = Serve;
        QByteArray body; // the file, or the target path of a redirect
    };

    TestHttpServer()
    {
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket *socket = m_server.nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
        });
        m_server.listen(QHostAddress::LocalHost, 0);
    }
    void route(const QByteArray &path, Mode mode, const QByteArray &body = {}) { m_routes[path] = {mode, body}; }
    QString host() const { return QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort()); }
    QString url(const QString &path) const { return QStringLiteral("http://") + host() + path; }
    int requests() const { return m_requests; }

  private:
    void answer(QTcpSocket *socket)
    {
        QByteArray &pending = m_pending[socket];
        pending += socket->readAll();
        if (!pending.contains("\r\n\r\n"))
            return;
        ++m_requests;
        const QByteArray path = pending.split(' ').value(1);
        pending.clear();
        const Route route = m_routes.value(path, Route{NotFound, {}});
        switch (route.mode) {
        case Stall:
            return; // accepted, never answered
        case NotFound:
            socket->write("HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\nConnection: close\r\n\r\nNot found");
            break;
        case Redirect:
            socket->write("HTTP/1.1 302 Found\r\nLocation: " + route.body +
                          "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
            break;
        case Serve:
        case Truncate: {
            const QByteArray body = route.mode == Truncate ? route.body.left(route.body.size() / 2) : route.body;
            socket->write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(route.body.size()) +
                          "\r\nConnection: close\r\n\r\n" + body);
            break;
        }
        }
        socket->disconnectFromHost();
    }

    QTcpServer m_server;
    QHash<QByteArray, Route> m_routes;
    QHash<QTcpSocket *, QByteArray> m_pending;
    int m_requests = 0;
};
