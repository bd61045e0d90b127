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
    // The maker's download site, the second address that "关于" shows.
    QString makerSoftwareSite = QStringLiteral("https://soft.chengchuan.example/");
    // Microsoft's site, with no trailing slash: the download page of .NET
    // Framework 3.5 lies below it.
    QString microsoftSite = QStringLiteral("https://www.microsoft.com");
};
