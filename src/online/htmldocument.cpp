#include "online/htmldocument.h"

#include <gumbo.h>

#include <algorithm>
#include <functional>

namespace {

bool isElement(const GumboNode* node)
{
    return node->type == GUMBO_NODE_ELEMENT || node->type == GUMBO_NODE_TEMPLATE;
}

bool hasTag(const GumboNode* node, GumboTag tag)
{
    return isElement(node) && node->v.element.tag == tag;
}

QString tagNameOf(const GumboNode* node)
{
    const GumboElement& element = node->v.element;
    if (element.tag != GUMBO_TAG_UNKNOWN)
        return QString::fromLatin1(gumbo_normalized_tagname(element.tag));
    GumboStringPiece original = element.original_tag;
    gumbo_tag_from_original_text(&original);
    return QString::fromUtf8(original.data, qsizetype(original.length)).toLower();
}

QString attribute(const GumboNode* node, const char* name)
{
    const GumboAttribute* found = gumbo_get_attribute(&node->v.element.attributes, name);
    return found ? QString::fromUtf8(found->value) : QString();
}

template <class Visit>
void forEachChildElement(const GumboNode* node, Visit&& visit)
{
    const GumboVector& children = node->v.element.children;
    for (unsigned i = 0; i < children.length; ++i) {
        const auto* child = static_cast<const GumboNode*>(children.data[i]);
        if (isElement(child))
            visit(child);
    }
}

// Elements that a browser lays out as blocks, each on lines of its own.
bool isBlock(GumboTag tag)
{
    switch (tag) {
    case GUMBO_TAG_HTML: case GUMBO_TAG_BODY: case GUMBO_TAG_ADDRESS: case GUMBO_TAG_ARTICLE:
    case GUMBO_TAG_ASIDE: case GUMBO_TAG_BLOCKQUOTE: case GUMBO_TAG_CENTER: case GUMBO_TAG_DD:
    case GUMBO_TAG_DETAILS: case GUMBO_TAG_DIR: case GUMBO_TAG_DIV:
    case GUMBO_TAG_DL: case GUMBO_TAG_DT: case GUMBO_TAG_FIELDSET: case GUMBO_TAG_FIGCAPTION:
    case GUMBO_TAG_FIGURE: case GUMBO_TAG_FOOTER: case GUMBO_TAG_FORM: case GUMBO_TAG_H1:
    case GUMBO_TAG_H2: case GUMBO_TAG_H3: case GUMBO_TAG_H4: case GUMBO_TAG_H5: case GUMBO_TAG_H6:
    case GUMBO_TAG_HEADER: case GUMBO_TAG_HGROUP: case GUMBO_TAG_HR: case GUMBO_TAG_LEGEND:
    case GUMBO_TAG_LI: case GUMBO_TAG_LISTING: case GUMBO_TAG_MAIN: case GUMBO_TAG_MENU:
    case GUMBO_TAG_NAV: case GUMBO_TAG_OL: case GUMBO_TAG_PRE: case GUMBO_TAG_SECTION:
    case GUMBO_TAG_SUMMARY: case GUMBO_TAG_TABLE: case GUMBO_TAG_CAPTION: case GUMBO_TAG_TR:
    case GUMBO_TAG_UL: case GUMBO_TAG_XMP: case GUMBO_TAG_PLAINTEXT:
        return true;
    default:
        return false;
    }
}

// Elements that a browser does not render at all.
bool isHidden(const GumboNode* node)
{
    switch (node->v.element.tag) {
    case GUMBO_TAG_HEAD: case GUMBO_TAG_TITLE: case GUMBO_TAG_SCRIPT: case GUMBO_TAG_STYLE:
    case GUMBO_TAG_NOSCRIPT: case GUMBO_TAG_TEMPLATE: case GUMBO_TAG_META: case GUMBO_TAG_LINK:
    case GUMBO_TAG_BASE: case GUMBO_TAG_AREA: case GUMBO_TAG_PARAM: case GUMBO_TAG_SOURCE:
    case GUMBO_TAG_TRACK: case GUMBO_TAG_DATALIST: case GUMBO_TAG_INPUT: case GUMBO_TAG_TEXTAREA:
    case GUMBO_TAG_SELECT: case GUMBO_TAG_IFRAME: case GUMBO_TAG_OBJECT: case GUMBO_TAG_EMBED:
        return true;
    default:
        break;
    }
    if (gumbo_get_attribute(&node->v.element.attributes, "hidden"))
        return true;
    QString style = attribute(node, "style").toLower();
    style.remove(QLatin1Char(' '));
    return style.contains(QLatin1String("display:none"));
}

bool isCollapsibleSpace(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == u'\f';
}

// Collects rendered text: runs of blanks collapse to one, blanks at the
// start and end of a line go, line breaks that blocks require merge into the
// largest of them, and none stand at the start or the end.
class RenderedText {
public:
    void text(const QString& run, bool preserved)
    {
        for (const QChar c : run) {
            if (!preserved && isCollapsibleSpace(c)) {
                m_pendingSpace = !m_atLineStart;
                continue;
            }
            flushBreaks();
            if (m_pendingSpace)
                m_out += QLatin1Char(' ');
            m_pendingSpace = false;
            m_out += c;
            m_atLineStart = c == u'\n';
        }
    }
    // A string of its own: the line break of <br>, the tab between cells.
    void literal(QChar c)
    {
        flushBreaks();
        m_pendingSpace = false;
        m_out += c;
        m_atLineStart = true;
    }
    void requireBreaks(int count)
    {
        m_pendingBreaks = std::max(m_pendingBreaks, count);
        m_pendingSpace = false;
        m_atLineStart = true;
    }
    QString result() const { return m_out; }

private:
    void flushBreaks()
    {
        if (m_pendingBreaks > 0 && !m_out.isEmpty())
            m_out += QString(m_pendingBreaks, QLatin1Char('\n'));
        m_pendingBreaks = 0;
    }

    QString m_out;
    int m_pendingBreaks = 0;
    bool m_pendingSpace = false;
    bool m_atLineStart = true;
};

void render(const GumboNode* node, RenderedText& out, bool preserved)
{
    if (node->type == GUMBO_NODE_TEXT || node->type == GUMBO_NODE_WHITESPACE || node->type == GUMBO_NODE_CDATA) {
        out.text(QString::fromUtf8(node->v.text.text), preserved);
        return;
    }
    if (!isElement(node) || isHidden(node))
        return;
    const GumboTag tag = node->v.element.tag;
    if (tag == GUMBO_TAG_BR) {
        out.literal(QLatin1Char('\n'));
        return;
    }
    const int breaks = tag == GUMBO_TAG_P ? 2 : isBlock(tag) ? 1 : 0;
    if (breaks)
        out.requireBreaks(breaks);
    const bool keepBlanks = preserved || tag == GUMBO_TAG_PRE || tag == GUMBO_TAG_LISTING || tag == GUMBO_TAG_XMP
                            || tag == GUMBO_TAG_PLAINTEXT;
    const GumboVector& children = node->v.element.children;
    bool cellBefore = false;
    for (unsigned i = 0; i < children.length; ++i) {
        const auto* child = static_cast<const GumboNode*>(children.data[i]);
        const bool cell = hasTag(child, GUMBO_TAG_TD) || hasTag(child, GUMBO_TAG_TH);
        if (cell && cellBefore)
            out.literal(QLatin1Char('\t'));
        cellBefore = cellBefore || cell;
        render(child, out, keepBlanks);
    }
    if (breaks)
        out.requireBreaks(breaks);
}

void collectRows(const GumboNode* section, QList<const GumboNode*>& rows)
{
    forEachChildElement(section, [&](const GumboNode* child) {
        if (hasTag(child, GUMBO_TAG_TR))
            rows.append(child);
    });
}

} // namespace

QList<HtmlElement> HtmlElement::Rows() const
{
    QList<const GumboNode*> head, body, foot;
    if (m_node) {
        forEachChildElement(m_node, [&](const GumboNode* child) {
            switch (child->v.element.tag) {
            case GUMBO_TAG_THEAD: collectRows(child, head); break;
            case GUMBO_TAG_TFOOT: collectRows(child, foot); break;
            case GUMBO_TAG_TBODY: collectRows(child, body); break;
            case GUMBO_TAG_TR: body.append(child); break;
            default: break;
            }
        });
    }
    QList<HtmlElement> rows;
    for (const QList<const GumboNode*>* part : {&head, &body, &foot}) {
        for (const GumboNode* row : *part)
            rows.append(HtmlElement(m_document, row));
    }
    return rows;
}

QList<HtmlElement> HtmlElement::Cells() const
{
    QList<HtmlElement> cells;
    if (m_node) {
        forEachChildElement(m_node, [&](const GumboNode* child) {
            if (child->v.element.tag == GUMBO_TAG_TD || child->v.element.tag == GUMBO_TAG_TH)
                cells.append(HtmlElement(m_document, child));
        });
    }
    return cells;
}

QString HtmlElement::innertext() const
{
    if (!m_node)
        return {};
    RenderedText out;
    const GumboVector& children = m_node->v.element.children;
    const bool preserved = m_node->v.element.tag == GUMBO_TAG_PRE;
    for (unsigned i = 0; i < children.length; ++i)
        render(static_cast<const GumboNode*>(children.data[i]), out, preserved);
    return out.result();
}

QString HtmlElement::href() const
{
    if (!m_node || !gumbo_get_attribute(&m_node->v.element.attributes, "href"))
        return {};
    return m_document->m_base.resolved(QUrl(attribute(m_node, "href").trimmed())).toString();
}

QString HtmlElement::Target() const
{
    if (!m_node)
        return {};
    const auto set = m_document->m_targets.constFind(m_node);
    return set != m_document->m_targets.constEnd() ? *set : attribute(m_node, "target");
}

void HtmlElement::setTarget(const QString& target)
{
    if (m_node)
        m_document->m_targets.insert(m_node, target);
}

void* HtmlDocument::Arena::allocate(size_t bytes)
{
    bytes = (bytes + 15) & ~size_t(15);
    if (blocks.empty() || used + bytes > size) {
        size = std::max<size_t>(bytes, 256 * 1024);
        blocks.push_back(std::make_unique<char[]>(size));
        used = 0;
    }
    void* block = blocks.back().get() + used;
    used += bytes;
    return block;
}

HtmlDocument::HtmlDocument(const QString& html, const QUrl& url)
    : m_html(html), m_utf8(html.toUtf8()), m_url(url), m_base(url), m_options(new GumboOptions(kGumboDefaultOptions))
{
    m_options->userdata = &m_arena;
    m_options->allocator = [](void* arena, size_t bytes) { return static_cast<Arena*>(arena)->allocate(bytes); };
    m_options->deallocator = [](void*, void*) {}; // the blocks go with the document
    m_options->max_errors = 0; // parse errors are of no use here
    m_output = gumbo_parse_with_options(m_options.get(), m_utf8.constData(), size_t(m_utf8.size()));

    const QList<HtmlElement> bases = getElementsByTagName(QStringLiteral("base"));
    for (const HtmlElement& base : bases) {
        if (gumbo_get_attribute(&base.m_node->v.element.attributes, "href")) {
            m_base = m_url.resolved(QUrl(attribute(base.m_node, "href").trimmed()));
            break;
        }
    }
}

HtmlDocument::~HtmlDocument() = default; // the arena holds all that gumbo made

QList<HtmlElement> HtmlDocument::getElementsByTagName(const QString& tagName)
{
    const QString wanted = tagName.toLower();
    const GumboTag known = gumbo_tag_enum(wanted.toUtf8().constData());
    QList<HtmlElement> found;
    std::function<void(const GumboNode*)> walk = [&](const GumboNode* node) {
        if (!isElement(node))
            return;
        const GumboTag tag = node->v.element.tag;
        if (known != GUMBO_TAG_UNKNOWN ? tag == known : tag == GUMBO_TAG_UNKNOWN && tagNameOf(node) == wanted)
            found.append(HtmlElement(this, node));
        forEachChildElement(node, walk);
    };
    walk(m_output->root);
    return found;
}
