#pragma once

// Every network and mail address the program knows, in one place. The values
// are defaults: the application receives them and may be given others, which
// is how the tests keep away from the internet. The draw-data site, the
// lottery centre's data feed and the update server come from the build's
// configuration (see buildaddresses.h.in).

#include "platform/buildaddresses.h"

#include <QString>

struct SiteAddresses {
    // The draw-data site, with no trailing slash.
    QString drawSiteBase = QStringLiteral(CHENGCHUAN_DRAW_SITE_BASE);
    // The maker's own site, ending in "/"; its page customware.htm offers
    // custom software.
    QString makerWebSite = QStringLiteral("https://chengchuan.example/");
    QString makerMail = QStringLiteral("support@chengchuan.example");
    // The maker's download site, the second address that "关于" shows.
    QString makerSoftwareSite = QStringLiteral("https://soft.chengchuan.example/");
    // Microsoft's site, with no trailing slash: the download page of .NET
    // Framework 3.5 lies below it.
    QString microsoftSite = QStringLiteral("https://www.microsoft.com");
    // The vendor's update server, ending in "/"; empty when there is none,
    // and then the start sends no update check.
    QString vendorBaseUrl = QStringLiteral(CHENGCHUAN_VENDOR_BASE_URL);
    // The lottery centre's site, with no trailing slash: its data feed of
    // the latest draws lies below it.
    QString feedBase = QStringLiteral(CHENGCHUAN_FEED_BASE);
};
