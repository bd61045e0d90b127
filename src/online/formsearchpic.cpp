#include "online/formsearchpic.h"

#include "online/htmldocument.h"
#include "online/onlineimport.h"
#include "online/pagebrowser.h"
#include "platform/textrules.h"
#include "windowkit/appcontext.h"
#include "windowkit/controls.h"

#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QTextBrowser>

namespace {

// The page as the user sees it: read-only, links reported and never followed
// by the view itself, and nothing fetched for it: a picture stays blank.
class PageViewer final : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl&) override
    {
        if (type != QTextDocument::ImageResource)
            return {};
        QImage blank(1, 1, QImage::Format_ARGB32);
        blank.fill(Qt::transparent);
        return blank;
    }
};

// The site's own style sheet is not fetched: the balls of a draw keep the
// colours they have on the site, red and blue, and the cells some room.
const QString pageStyle = QStringLiteral("em { font-style: normal; font-weight: bold; color: #1450a0; }"
                                         "em.rr { color: #d01010; } td { padding: 2px 6px; }");

// The view takes its time over a page: about as much as the page is long,
// and more with its depth, its pictures, its list items, the length of a
// paragraph and above all with the grid of its tables, rows by columns,
// twice for every table around a table. A page beyond these is not shown.
constexpr qsizetype viewCharacters = 256 * 1024;
constexpr int viewDepth = 100;
constexpr qsizetype viewImages = 1000;
constexpr qsizetype viewListItems = 1000;
constexpr qsizetype viewColumns = 100;
constexpr qsizetype viewTableGrid = 4000;
constexpr qsizetype viewLine = 20000;

// What the view is given: the page written out again from its parsed tree,
// so that what was measured is what the view lays out; or, for a page that
// would take the view too long, a note in its place.
QString shownPage(const HtmlDocument& document)
{
    if (document.html().size() <= viewCharacters) {
        const HtmlDocument::Outline outline = document.outline();
        if (outline.depth <= viewDepth && outline.images <= viewImages && outline.listItems <= viewListItems
            && outline.widestTable <= viewColumns && outline.tableGrid <= viewTableGrid
            && outline.longestLine <= viewLine) {
            const QString page = document.serialized();
            if (page.size() <= viewCharacters)
                return page;
        }
    }
    return QStringLiteral("<h3>无法显示此页</h3><p>此页过大或过于复杂，不在此显示。</p>");
}

constexpr int windowWidth = 960;
constexpr int windowHeight = 680;
constexpr int commandBarHeight = 44;

} // namespace

FormSearchPic::FormSearchPic(AppContext& context, DrawHistory& history, QWidget* parent)
    : ModalWindow(context, parent),
      Label1(controls::label(this, "Label1", QStringLiteral("欢迎使用澄川软件！"), QRect(12, 10, 300, 24))),
      Command1(controls::button(this, "Command1", QStringLiteral("数据首页"), QRect(windowWidth - 500, 8, 100, 28))),
      Command2(controls::button(this, "Command2", QStringLiteral("下一页"), QRect(windowWidth - 390, 8, 100, 28))),
      Command6(controls::button(this, "Command6", QStringLiteral("导入当前页数据"),
                                QRect(windowWidth - 280, 8, 130, 28))),
      Command3(controls::button(this, "Command3", QStringLiteral("导入全部页数据"),
                                QRect(windowWidth - 140, 8, 130, 28))),
      Picture1(new QFrame(this)),
      WebBrowser1(new PageBrowser(this)),
      PageView(new PageViewer(Picture1)),
      StatusBar1(new QStatusBar(this)),
      StatusBar1Panel1(new QLabel(QStringLiteral("澄川软件"), StatusBar1)),
      StatusBar1Panel2(new QLabel(StatusBar1)),
      m_history(history),
      m_import(new OnlineImport(*WebBrowser1, history, context.clock, context.DrawSiteBase))
{
    setObjectName(QStringLiteral("FormSearchPic"));
    setWindowTitle(QStringLiteral("在线导入开奖历史到主界面列表"));
    setFixedSize(windowWidth, windowHeight);
    Label1->setStyleSheet(QStringLiteral("color: #C00000;"));

    const int statusHeight = StatusBar1->sizeHint().height();
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setGeometry(0, commandBarHeight, windowWidth, windowHeight - commandBarHeight - statusHeight);
    PageView->setObjectName(QStringLiteral("PageView"));
    PageView->setOpenLinks(false);
    PageView->setOpenExternalLinks(false);
    PageView->document()->setDefaultStyleSheet(pageStyle);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    StatusBar1->setSizeGripEnabled(false);
    StatusBar1->setGeometry(0, windowHeight - statusHeight, windowWidth, statusHeight);
    for (QLabel* panel : {StatusBar1Panel1, StatusBar1Panel2}) {
        panel->setFrameShape(QFrame::Panel);
        panel->setFrameShadow(QFrame::Sunken);
    }
    StatusBar1Panel1->setObjectName(QStringLiteral("Panel1"));
    StatusBar1Panel1->setFixedWidth(160);
    StatusBar1Panel2->setObjectName(QStringLiteral("Panel2"));
    StatusBar1->addWidget(StatusBar1Panel1, 0);
    StatusBar1->addWidget(StatusBar1Panel2, 1);

    onClick(Command1, [this] { Command1_Click(); });
    onClick(Command2, [this] { Command2_Click(); });
    onClick(Command6, [this] { Command6_Click(); });
    onClick(Command3, [this] { Command3_Click(); });
    connect(WebBrowser1, &PageBrowser::NavigateComplete2, this,
            [this](PageBrowser* frame, const QString& url) { WebBrowser1_NavigateComplete2(frame, url); });
    connect(WebBrowser1, &PageBrowser::DocumentComplete, this, [this](PageBrowser* frame, const QString& url) {
        m_context.runEvent([&] { WebBrowser1_DocumentComplete(frame, url); });
    });
    connect(PageView, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { PageView_LinkClicked(link); });
    connect(m_import, &OnlineImport::pageTextChanged, StatusBar1Panel2, &QLabel::setText);

    Form_Load();
}

FormSearchPic::~FormSearchPic()
{
    delete m_import;
}

void FormSearchPic::Form_Load()
{
    Picture1->setFrameShape(QFrame::NoFrame);
    WebBrowser1->Silent = true;
    WebBrowser1->Navigate(QStringLiteral("about:blank"));
    PageView->setGeometry(0, 0, Picture1->width(), Picture1->height());
    WebBrowser1->Navigate(drawsite::firstPage(m_context.DrawSiteBase));
    StatusBar1Panel2->setText(QStringLiteral("目前是第1页。"));
    m_import->PageNumber = 1;
}

void FormSearchPic::Form_Unload()
{
    // A wait or a run under way ends with the window; what it read stays.
    m_import->stop();
}

void FormSearchPic::Command1_Click()
{
    WebBrowser1->Navigate(drawsite::firstPage(m_context.DrawSiteBase));
}

void FormSearchPic::Command2_Click()
{
    Command2->setEnabled(false);
    m_import->nextPage();
    Command2->setEnabled(true);
}

void FormSearchPic::Command6_Click()
{
    const int count = 导入当前页数据(WebBrowser1->Document(), m_history);
    m_context.messages.show(MessageIcon::Information,
                            QStringLiteral("已经导入数据：") + textrules::decimal(count) + QStringLiteral("条。"));
}

void FormSearchPic::Command3_Click()
{
    Command3->setEnabled(false);
    const int total = m_import->importAllPages();
    if (m_import->stopped())
        return; // the window has closed under the run
    m_context.messages.show(MessageIcon::Information, QStringLiteral("导入完成! 已经导入数据：")
                                                          + textrules::decimal(total) + QStringLiteral("条。"));
    Command3->setEnabled(true);
}

void FormSearchPic::WebBrowser1_NavigateComplete2(PageBrowser* frame, const QString& url)
{
    Q_UNUSED(url)
    // The page is shown as it has come. No script runs in it, so there is no
    // alert, confirm, dialog or window.open to take away from it.
    if (const HtmlDocument* document = frame->Document())
        PageView->setHtml(shownPage(*document));
}

void FormSearchPic::WebBrowser1_DocumentComplete(PageBrowser* frame, const QString& url)
{
    m_import->DocumentComplete(frame, url);
}

void FormSearchPic::PageView_LinkClicked(const QUrl& link)
{
    // Another link would leave the site or open a new window; neither
    // happens here.
    const HtmlDocument* document = WebBrowser1->Document();
    if (!document)
        return;
    const QString address = document->url().resolved(link).toString();
    if (drawsite::isPagingLink(address, m_context.DrawSiteBase))
        WebBrowser1->Navigate(address);
}
