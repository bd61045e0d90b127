#pragma once

// Every network and mail address the program knows, in one place. The values
// are defaults: the application receives them and may be given others, which
// is how the tests keep away from the internet.

#include <QString>

struct SiteAddresses {
    // The draw-data site, with no trailing slash.
    QString drawSiteBase = QStringLiteral("http://kaijiang.zhcw.com");
    // The maker's own site, ending in "/"; its page customware.htm offers
    // custom software.
    QString makerWebSite = QStringLiteral("https://chengchuan.example/");
    QString makerMail = QStringLiteral("support@chengchuan.example");
};
