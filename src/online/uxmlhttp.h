#pragma once

// The download control: one HTTP request at a time, without blocking the
// user interface. It learns that a request has ended by polling the request
// object's ReadyState every 10 ms from tmrReader, never through a callback,
// and tells the hosting window through one of two events: OnDateArrived on
// status 200, OnDateErr with the explanation text of the status otherwise.
// A status that does not fit 16 bits or lies outside 0 to 600 ends the
// request in silence: the host hears nothing of it.

#include "online/statustexts.h"

#include <QByteArray>
#include <QObject>
#include <QString>

class QTimer;
class XmlHttpRequest;

class uXMLHTTP : public QObject {
    Q_OBJECT

public:
    explicit uXMLHTTP(QObject* parent = nullptr);
    ~uXMLHTTP() override;

    // The one member that does not guard itself.
    void Open_(const QString& AMethod, const QString& AUrl, const QString& 保存路径 = QString());
    void SetRequestHeader(const QString& AHeader, const QString& AValue);
    void Send_(const QString& ABody = QString());
    void Abort_();

    // True from the end of a request on, whatever its status.
    bool DownOK() const { return m_downOK; }
    qint32 ReadyState() const;
    qint32 Status() const;
    QString StatusText() const;
    QString GetResponseHeader(const QString& AHeader) const;
    QString GetAllResponseHeaders() const;
    QByteArray ResponseBody() const;
    QString ResponseText() const;

    QTimer* tmrReader;

signals:
    void OnDateArrived();
    void OnReadyStateChange();
    void OnDateErr(const QString& txt);

private:
    void tmrReader_Timer();
    void saveResponse(const QByteArray& body) const;

    XmlHttpRequest* m_request;
    bool m_pollAfterSend = false;
    QString 保存路径;
    bool m_downOK = false;
    StatusTextTable m_statusTexts;
};
