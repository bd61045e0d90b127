#include "online/htmldocument.h"

#include "online/guardedparse.h"
#include "online/parseestimate.h"

#include <gumbo.h>

#include <algorithm>

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

const GumboVector* childrenOf(const GumboNode* node)
{
    if (node->type == GUMBO_NODE_DOCUMENT)
        return &node->v.document.children;
    return isElement(node) ? &node->v.element.children : nullptr;
}

// Goes through `top` and all below it in document order, keeping the way
// down in a vector of its own rather than on the call stack: `enter(node)`
// comes before a node's children and tells whether to go into them, and
// `leave(node)` comes after them, for the nodes gone into.
template <class Enter, class Leave>
void walk(const GumboNode* top, Enter&& enter, Leave&& leave)
{
    struct Step {
        const GumboNode* node;
        unsigned next; // the child to go to next
    };
    if (!enter(top))
        return;
    std::vector<Step> way{{top, 0}};
    while (!way.empty()) {
        Step& step = way.back();
        const GumboVector* children = childrenOf(step.node);
        if (children && step.next < children->length) {
            const auto* child = static_cast<const GumboNode*>(children->data[step.next++]);
            if (enter(child))
                way.push_back({child, 0});
            continue;
        }
        leave(step.node);
        way.pop_back();
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

bool keepsBlanks(GumboTag tag)
{
    return tag == GUMBO_TAG_PRE || tag == GUMBO_TAG_LISTING || tag == GUMBO_TAG_XMP || tag == GUMBO_TAG_PLAINTEXT;
}

// The text of the nodes below `element` as a browser renders it.
QString renderedText(const GumboNode* element)
{
    RenderedText out;
    // For each element gone into: whether its text keeps its blanks, whether
    // a cell has come among its children, the line breaks it ends with, and
    // whether a tab parts its cells (not for the element asked about).
    struct Element {
        bool keepBlanks;
        bool cellBefore;
        int breaks;
        bool partsCells;
    };
    std::vector<Element> open;
    const auto enter = [&](const GumboNode* node) {
        if (node == element) {
            open.push_back({node->v.element.tag == GUMBO_TAG_PRE, false, 0, false});
            return true;
        }
        Element& parent = open.back();
        if (node->type == GUMBO_NODE_TEXT || node->type == GUMBO_NODE_WHITESPACE || node->type == GUMBO_NODE_CDATA) {
            out.text(QString::fromUtf8(node->v.text.text), parent.keepBlanks);
            return false;
        }
        const bool cell = hasTag(node, GUMBO_TAG_TD) || hasTag(node, GUMBO_TAG_TH);
        if (parent.partsCells && cell && parent.cellBefore)
            out.literal(QLatin1Char('\t'));
        parent.cellBefore = parent.cellBefore || cell;
        if (!isElement(node) || isHidden(node))
            return false;
        const GumboTag tag = node->v.element.tag;
        if (tag == GUMBO_TAG_BR) {
            out.literal(QLatin1Char('\n'));
            return false;
        }
        const int breaks = tag == GUMBO_TAG_P ? 2 : isBlock(tag) ? 1 : 0;
        if (breaks)
            out.requireBreaks(breaks);
        open.push_back({parent.keepBlanks || keepsBlanks(tag), false, breaks, true});
        return true;
    };
    const auto leave = [&](const GumboNode*) {
        if (open.back().breaks)
            out.requireBreaks(open.back().breaks);
        open.pop_back();
    };
    walk(element, enter, leave);
    return out.result();
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
    return m_node ? renderedText(m_node) : QString();
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

namespace {

bool isVoid(GumboTag tag)
{
    switch (tag) {
    case GUMBO_TAG_AREA: case GUMBO_TAG_BASE: case GUMBO_TAG_BASEFONT: case GUMBO_TAG_BGSOUND: case GUMBO_TAG_BR:
    case GUMBO_TAG_COL: case GUMBO_TAG_EMBED: case GUMBO_TAG_FRAME: case GUMBO_TAG_HR: case GUMBO_TAG_IMG:
    case GUMBO_TAG_INPUT: case GUMBO_TAG_KEYGEN: case GUMBO_TAG_LINK: case GUMBO_TAG_META: case GUMBO_TAG_PARAM:
    case GUMBO_TAG_SOURCE: case GUMBO_TAG_TRACK: case GUMBO_TAG_WBR:
        return true;
    default:
        return false;
    }
}

// Elements whose text is written as it stands, markup characters and all.
bool holdsRawText(GumboTag tag)
{
    switch (tag) {
    case GUMBO_TAG_SCRIPT: case GUMBO_TAG_STYLE: case GUMBO_TAG_XMP: case GUMBO_TAG_IFRAME: case GUMBO_TAG_NOEMBED:
    case GUMBO_TAG_NOFRAMES: case GUMBO_TAG_PLAINTEXT:
        return true;
    default:
        return false;
    }
}

void appendEscaped(QString& out, const char* utf8, bool inAttribute)
{
    for (const QChar c : QString::fromUtf8(utf8)) {
        if (c == u'&')
            out += QLatin1String("&amp;");
        else if (c == u'<' && !inAttribute)
            out += QLatin1String("&lt;");
        else if (c == u'>' && !inAttribute)
            out += QLatin1String("&gt;");
        else if (c == u'"' && inAttribute)
            out += QLatin1String("&quot;");
        else
            out += c;
    }
}

} // namespace

HtmlDocument::HtmlDocument(const QString& html, const QUrl& url)
    : m_html(html), m_utf8(html.toUtf8()), m_url(url), m_base(url), m_options(new GumboOptions(kGumboDefaultOptions))
{
    parse();
    if (!m_output)
        return;
    const QList<HtmlElement> bases = getElementsByTagName(QStringLiteral("base"));
    for (const HtmlElement& base : bases) {
        if (gumbo_get_attribute(&base.m_node->v.element.attributes, "href")) {
            m_base = m_url.resolved(QUrl(attribute(base.m_node, "href").trimmed()));
            break;
        }
    }
}

HtmlDocument::~HtmlDocument() = default; // the arena holds all that gumbo made

void HtmlDocument::parse()
{
    if (m_utf8.size() > MaximumBytes)
        return;
    const parseestimate::Estimate estimate = parseestimate::estimate(m_html, MaximumDepth, MaximumWork);
    if (estimate.depth > MaximumDepth || estimate.work > MaximumWork)
        return;
    m_options->userdata = &m_arena;
    m_options->allocator = [](void* arena, size_t bytes) { return static_cast<Arena*>(arena)->allocate(bytes); };
    m_options->deallocator = [](void*, void*) {}; // the blocks go with the document
    m_options->max_errors = 0; // parse errors are of no use here
    m_output = guardedparse::parse(*m_options, m_utf8, ParseMilliseconds, ParseMemory);
    if (!m_output)
        m_arena = Arena(); // what the parse left behind
}

QList<HtmlElement> HtmlDocument::getElementsByTagName(const QString& tagName)
{
    if (!m_output)
        return {};
    const QString wanted = tagName.toLower();
    const GumboTag known = gumbo_tag_enum(wanted.toUtf8().constData());
    QList<HtmlElement> found;
    const auto enter = [&](const GumboNode* node) {
        if (!isElement(node))
            return false;
        const GumboTag tag = node->v.element.tag;
        if (known != GUMBO_TAG_UNKNOWN ? tag == known : tag == GUMBO_TAG_UNKNOWN && tagNameOf(node) == wanted)
            found.append(HtmlElement(this, node));
        return true;
    };
    walk(m_output->root, enter, [](const GumboNode*) {});
    return found;
}

HtmlDocument::Outline HtmlDocument::outline() const
{
    Outline outline;
    if (!m_output)
        return outline;
    struct Table {
        qsizetype rows = 0;
        qsizetype columns = 0;
        qsizetype columnsOfRow = 0;
    };
    std::vector<Table> tables; // the tables gone into, the innermost last
    int depth = 0;
    const auto enter = [&](const GumboNode* node) {
        if (!isElement(node))
            return false;
        outline.depth = std::max(outline.depth, ++depth);
        switch (node->v.element.tag) {
        case GUMBO_TAG_TABLE: tables.emplace_back(); break;
        case GUMBO_TAG_IMG: ++outline.images; break;
        case GUMBO_TAG_LI: ++outline.listItems; break;
        case GUMBO_TAG_TR:
            if (!tables.empty()) {
                ++tables.back().rows;
                tables.back().columnsOfRow = 0;
            }
            break;
        case GUMBO_TAG_TD: case GUMBO_TAG_TH:
            if (!tables.empty()) {
                Table& table = tables.back();
                table.columnsOfRow += std::clamp<qsizetype>(attribute(node, "colspan").toLongLong(), 1, 1'000'000);
                table.columns = std::max(table.columns, table.columnsOfRow);
            }
            break;
        default: break;
        }
        return true;
    };
    const auto leave = [&](const GumboNode* node) {
        --depth;
        if (node->v.element.tag != GUMBO_TAG_TABLE)
            return;
        const Table table = tables.back();
        tables.pop_back();
        outline.widestTable = std::max(outline.widestTable, table.columns);
        const qsizetype grid = std::max<qsizetype>(table.rows, 1) * std::max<qsizetype>(table.columns, 1);
        outline.tableGrid = std::min(outline.tableGrid + (grid << std::min<size_t>(tables.size(), 20)),
                                     qsizetype(1) << 60);
    };
    walk(m_output->root, enter, leave);

    const QString text = renderedText(m_output->root);
    qsizetype lineStart = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (i == text.size() || text[i] == u'\n' || text[i] == u'\t') {
            outline.longestLine = std::max(outline.longestLine, i - lineStart);
            lineStart = i + 1;
        }
    }
    return outline;
}

QString HtmlDocument::serialized() const
{
    QString out;
    if (!m_output)
        return out;
    std::vector<bool> raw{false}; // of each element gone into: its text stands as it is
    const auto enter = [&](const GumboNode* node) {
        switch (node->type) {
        case GUMBO_NODE_TEXT: case GUMBO_NODE_WHITESPACE: case GUMBO_NODE_CDATA:
            if (raw.back())
                out += QString::fromUtf8(node->v.text.text);
            else
                appendEscaped(out, node->v.text.text, false);
            return false;
        case GUMBO_NODE_ELEMENT: case GUMBO_NODE_TEMPLATE:
            break;
        default:
            return false; // comments
        }
        const GumboElement& element = node->v.element;
        out += QLatin1Char('<') + tagNameOf(node);
        for (unsigned i = 0; i < element.attributes.length; ++i) {
            const auto* attribute = static_cast<const GumboAttribute*>(element.attributes.data[i]);
            out += QLatin1Char(' ') + QString::fromUtf8(attribute->name) + QLatin1String("=\"");
            appendEscaped(out, attribute->value, true);
            out += QLatin1Char('"');
        }
        out += QLatin1Char('>');
        if (isVoid(element.tag))
            return false;
        // The parse drops a line break right after these start tags.
        if ((element.tag == GUMBO_TAG_PRE || element.tag == GUMBO_TAG_TEXTAREA || element.tag == GUMBO_TAG_LISTING)
            && element.children.length > 0) {
            const auto* first = static_cast<const GumboNode*>(element.children.data[0]);
            const bool text = first->type == GUMBO_NODE_TEXT || first->type == GUMBO_NODE_WHITESPACE;
            if (text && first->v.text.text[0] == '\n')
                out += QLatin1Char('\n');
        }
        raw.push_back(holdsRawText(element.tag));
        return true;
    };
    const auto leave = [&](const GumboNode* node) {
        out += QLatin1String("</") + tagNameOf(node) + QLatin1Char('>');
        raw.pop_back();
    };
    walk(m_output->root, enter, leave);
    return out;
}
