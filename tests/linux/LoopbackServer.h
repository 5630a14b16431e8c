#pragma once

#include <gtest/gtest.h>

#include <QHostAddress>
#include <QList>
#include <QTcpServer>
#include <QTcpSocket>
#include <map>
#include <string>

namespace vantrelle::testing {

// Answers every request with one canned response, or with nothing at all.
class LoopbackServer {
public:
    LoopbackServer() {
        EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost, 0));
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            while (QTcpSocket* socket = m_server.nextPendingConnection()) {
                socket->setParent(&m_server);
                QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(socket); });
            }
        });
    }

    void respond(int status, QByteArray body) {
        m_status = status;
        m_body = std::move(body);
        m_silent = false;
    }
    void stayQuiet() { m_silent = true; }

    [[nodiscard]] std::string base() const {
        return "http://127.0.0.1:" + std::to_string(m_server.serverPort());
    }
    [[nodiscard]] const QList<QByteArray>& requestLines() const { return m_requestLines; }

private:
    void serve(QTcpSocket* socket) {
        QByteArray& pending = m_pending[socket];
        pending += socket->readAll();
        if (!pending.contains("\r\n\r\n")) return;
        m_requestLines.push_back(pending.left(pending.indexOf("\r\n")));
        if (m_silent) return;
        QByteArray head = "HTTP/1.1 " + QByteArray::number(m_status) + " Whatever\r\n";
        head += "Content-Type: application/json\r\nConnection: close\r\n";
        head += "Content-Length: " + QByteArray::number(m_body.size()) + "\r\n\r\n";
        socket->write(head + m_body);
        socket->disconnectFromHost();
    }

    QTcpServer m_server;
    std::map<QTcpSocket*, QByteArray> m_pending;
    QList<QByteArray> m_requestLines;
    int m_status = 200;
    QByteArray m_body;
    bool m_silent = false;
};

}  // namespace vantrelle::testing
