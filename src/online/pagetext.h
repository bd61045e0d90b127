#pragma once

// Bytes from the web become text the way a browser set to Chinese decodes
// them: a byte-order mark first, then the charset that the HTTP header
// declares, then the one the page's own meta tag declares, and for a page
// that declares none, GB18030, the superset of GBK and GB2312 that Chinese
// browsers fall back on. The download control's text follows a plain HTTP
// client instead: the header's charset, else UTF-8.

#include <QByteArray>
#include <QString>

namespace pagetext {

// The charset parameter of a Content-Type value ("text/html; charset=GBK"
// gives "GBK"); empty when there is none.
QByteArray charsetOfContentType(const QByteArray& contentType);

// The charset that a meta tag in the page's first 1024 bytes declares, as
// <meta charset="..."> or <meta http-equiv="Content-Type" content="...;
// charset=...">; empty when there is none.
QByteArray charsetOfMeta(const QByteArray& page);

// An HTML page.
QString decodePage(const QByteArray& body, const QByteArray& contentType);

// Any other response text.
QString decodeText(const QByteArray& body, const QByteArray& contentType);

} // namespace pagetext
