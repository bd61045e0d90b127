#pragma once

// A page as its scripts see it: parsed by gumbo as a browser parses HTML,
// with the few document operations that the online import uses. Tables come
// in document order, a table's rows leave out those of tables nested in it,
// a cell's innertext is its text as a browser renders it, and links give
// their absolute address and carry a writable target.
//
// Any page, of any shape, is parsed or refused in bounded time and memory:
// a page larger than MaximumBytes, nested deeper than MaximumDepth or whose
// tree would cost more than MaximumWork to build is refused before it is
// parsed (see parseestimate), and a parse that still takes more than
// ParseMilliseconds or ParseMemory is given up (see guardedparse). A refused
// page holds no element at all. Every walk over a page keeps its way down in
// memory of its own, never on the call stack, so that the depth of a page
// costs memory and not stack.

#include <QHash>
#include <QList>
#include <QString>
#include <QUrl>

#include <memory>
#include <vector>

struct GumboInternalNode;
struct GumboInternalOptions;
struct GumboInternalOutput;
class HtmlDocument;

// One element of a document; it lives as long as its document.
class HtmlElement {
public:
    HtmlElement() = default;

    bool isNull() const { return m_node == nullptr; }

    // Of a table: its rows, those of its head first, then those of its
    // bodies and its own in document order, then those of its foot.
    QList<HtmlElement> Rows() const;
    // Of a row: its td and th cells.
    QList<HtmlElement> Cells() const;
    // The text as a browser renders it: markup removed, blanks collapsed as
    // an HTML page collapses them, nothing added between inline elements,
    // line breaks for blocks and <br>, a tab between the cells of a row.
    QString innertext() const;
    // Of a link: its address made absolute against the page; empty for a
    // link with no address.
    QString href() const;
    QString Target() const;
    void setTarget(const QString& target);

private:
    friend class HtmlDocument;
    HtmlElement(HtmlDocument* document, const GumboInternalNode* node) : m_document(document), m_node(node) {}

    HtmlDocument* m_document = nullptr;
    const GumboInternalNode* m_node = nullptr;
};

class HtmlDocument {
public:
    // UTF-8 bytes of the largest page that is parsed.
    static constexpr qsizetype MaximumBytes = 10 * 1024 * 1024;
    // Browsers build no deeper tree either (Blink stops at 512 levels).
    static constexpr int MaximumDepth = 512;
    // Of the tree builder's searches through the open elements, in steps,
    // as parseestimate tells it: about half a second.
    static constexpr qint64 MaximumWork = 500'000'000;
    static constexpr int ParseMilliseconds = 2000;
    static constexpr size_t ParseMemory = size_t(512) * 1024 * 1024;

    // `url` is the page's address; links resolve against it, or against the
    // page's own <base href> where it has one.
    HtmlDocument(const QString& html, const QUrl& url);
    ~HtmlDocument();
    HtmlDocument(const HtmlDocument&) = delete;
    HtmlDocument& operator=(const HtmlDocument&) = delete;

    const QString& html() const { return m_html; }
    const QUrl& url() const { return m_url; }
    bool isRefused() const { return m_output == nullptr; }

    // Every element of that name, compared without regard to case, in
    // document order.
    QList<HtmlElement> getElementsByTagName(const QString& tagName);

    // What laying the page out takes, as far as its tree tells.
    struct Outline {
        int depth = 0; // of elements in elements, at the deepest
        qsizetype images = 0;
        qsizetype listItems = 0;
        qsizetype widestTable = 0; // columns of the widest table, spans counted
        qsizetype tableGrid = 0;   // rows times columns of each table, twice for every table around it
        qsizetype longestLine = 0; // of the rendered text, between line breaks and cells
    };
    Outline outline() const;

    // The page written out again from its tree: the same elements with the
    // same attributes and text, each closed where the parse closed it;
    // comments left out. Empty for a refused page.
    QString serialized() const;

private:
    friend class HtmlElement;

    // Gumbo's nodes and strings live in blocks that go with the document:
    // parsing a page then costs no allocation of its own, and a parse given
    // up leaves nothing to free.
    struct Arena {
        std::vector<std::unique_ptr<char[]>> blocks;
        size_t used = 0;
        size_t size = 0;
        void* allocate(size_t bytes);
    };
    void parse();

    QString m_html;
    QByteArray m_utf8; // what gumbo parsed; its nodes point into it
    QUrl m_url;
    QUrl m_base;
    Arena m_arena;
    std::unique_ptr<GumboInternalOptions> m_options;
    GumboInternalOutput* m_output = nullptr; // none for a refused page
    QHash<const GumboInternalNode*, QString> m_targets; // targets set from outside
};
