#include "online/parseestimate.h"

#include <gumbo.h>

#include <QHash>

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace parseestimate {

namespace {

// The work of making an element, in steps of a search.
constexpr qint64 MakingAnElement = 100;

bool isOneOf(int tag, std::initializer_list<GumboTag> tags)
{
    return std::find(tags.begin(), tags.end(), GumboTag(tag)) != tags.end();
}

bool isVoid(int tag)
{
    return isOneOf(tag, {GUMBO_TAG_AREA, GUMBO_TAG_BASE, GUMBO_TAG_BASEFONT, GUMBO_TAG_BGSOUND, GUMBO_TAG_BR,
                         GUMBO_TAG_COL, GUMBO_TAG_EMBED, GUMBO_TAG_FRAME, GUMBO_TAG_HR, GUMBO_TAG_IMAGE,
                         GUMBO_TAG_IMG, GUMBO_TAG_INPUT, GUMBO_TAG_KEYGEN, GUMBO_TAG_LINK, GUMBO_TAG_META,
                         GUMBO_TAG_PARAM, GUMBO_TAG_SOURCE, GUMBO_TAG_TRACK, GUMBO_TAG_WBR,
                         GUMBO_TAG_ISINDEX}); // isindex becomes a small form, closed at once
}

// Elements whose content is text up to their own end tag.
bool holdsText(int tag)
{
    return isOneOf(tag, {GUMBO_TAG_SCRIPT, GUMBO_TAG_STYLE, GUMBO_TAG_TEXTAREA, GUMBO_TAG_TITLE, GUMBO_TAG_XMP,
                         GUMBO_TAG_IFRAME, GUMBO_TAG_NOEMBED, GUMBO_TAG_NOFRAMES});
}

bool isHeading(int tag)
{
    return isOneOf(tag, {GUMBO_TAG_H1, GUMBO_TAG_H2, GUMBO_TAG_H3, GUMBO_TAG_H4, GUMBO_TAG_H5, GUMBO_TAG_H6});
}

// Blocks that close an open p and are themselves closed by their end tag
// wherever it is in scope.
bool isBlock(int tag)
{
    return isHeading(tag)
           || isOneOf(tag, {GUMBO_TAG_ADDRESS, GUMBO_TAG_ARTICLE, GUMBO_TAG_ASIDE, GUMBO_TAG_BLOCKQUOTE,
                            GUMBO_TAG_CENTER, GUMBO_TAG_DETAILS, GUMBO_TAG_DIR, GUMBO_TAG_DIV,
                            GUMBO_TAG_DL, GUMBO_TAG_FIELDSET, GUMBO_TAG_FIGCAPTION, GUMBO_TAG_FIGURE,
                            GUMBO_TAG_FOOTER, GUMBO_TAG_FORM, GUMBO_TAG_HEADER, GUMBO_TAG_HGROUP, GUMBO_TAG_MAIN,
                            GUMBO_TAG_MENU, GUMBO_TAG_NAV, GUMBO_TAG_OL, GUMBO_TAG_P, GUMBO_TAG_PRE,
                            GUMBO_TAG_SECTION, GUMBO_TAG_SUMMARY, GUMBO_TAG_UL, GUMBO_TAG_LISTING, GUMBO_TAG_LI,
                            GUMBO_TAG_DD, GUMBO_TAG_DT, GUMBO_TAG_TABLE});
}

bool isTablePart(int tag)
{
    return isOneOf(tag, {GUMBO_TAG_CAPTION, GUMBO_TAG_COLGROUP, GUMBO_TAG_TBODY, GUMBO_TAG_THEAD, GUMBO_TAG_TFOOT,
                         GUMBO_TAG_TR, GUMBO_TAG_TD, GUMBO_TAG_TH});
}

// Elements that the builder keeps in its list of active formatting elements.
bool isFormatting(int tag)
{
    return isOneOf(tag, {GUMBO_TAG_A, GUMBO_TAG_B, GUMBO_TAG_BIG, GUMBO_TAG_CODE, GUMBO_TAG_EM, GUMBO_TAG_FONT,
                         GUMBO_TAG_I, GUMBO_TAG_NOBR, GUMBO_TAG_S, GUMBO_TAG_SMALL, GUMBO_TAG_STRIKE,
                         GUMBO_TAG_STRONG, GUMBO_TAG_TT, GUMBO_TAG_U});
}

// Elements that put a marker into that list: the formatting inside them
// ends with them.
bool setsMarker(int tag)
{
    return isOneOf(tag, {GUMBO_TAG_APPLET, GUMBO_TAG_CAPTION, GUMBO_TAG_MARQUEE, GUMBO_TAG_OBJECT, GUMBO_TAG_TD,
                         GUMBO_TAG_TH, GUMBO_TAG_TEMPLATE});
}

// The "special" elements: an end tag of an inline element stops at them.
bool isSpecial(int tag)
{
    return isBlock(tag) || isTablePart(tag) || isVoid(tag) || holdsText(tag)
           || isOneOf(tag, {GUMBO_TAG_APPLET, GUMBO_TAG_BUTTON, GUMBO_TAG_FRAMESET, GUMBO_TAG_MARQUEE,
                            GUMBO_TAG_NOSCRIPT, GUMBO_TAG_OBJECT, GUMBO_TAG_PLAINTEXT, GUMBO_TAG_SELECT,
                            GUMBO_TAG_TEMPLATE});
}

// Start tags in foreign content that end it.
bool leavesForeignContent(int tag)
{
    return isOneOf(tag, {GUMBO_TAG_B, GUMBO_TAG_BIG, GUMBO_TAG_BLOCKQUOTE, GUMBO_TAG_BODY, GUMBO_TAG_BR,
                         GUMBO_TAG_CENTER, GUMBO_TAG_CODE, GUMBO_TAG_DD, GUMBO_TAG_DIV, GUMBO_TAG_DL, GUMBO_TAG_DT,
                         GUMBO_TAG_EM, GUMBO_TAG_EMBED, GUMBO_TAG_H1, GUMBO_TAG_H2, GUMBO_TAG_H3, GUMBO_TAG_H4,
                         GUMBO_TAG_H5, GUMBO_TAG_H6, GUMBO_TAG_HEAD, GUMBO_TAG_HR, GUMBO_TAG_I, GUMBO_TAG_IMG,
                         GUMBO_TAG_LI, GUMBO_TAG_LISTING, GUMBO_TAG_MENU, GUMBO_TAG_META, GUMBO_TAG_NOBR,
                         GUMBO_TAG_OL, GUMBO_TAG_P, GUMBO_TAG_PRE, GUMBO_TAG_RUBY, GUMBO_TAG_S, GUMBO_TAG_SMALL,
                         GUMBO_TAG_SPAN, GUMBO_TAG_STRONG, GUMBO_TAG_STRIKE, GUMBO_TAG_SUB, GUMBO_TAG_SUP,
                         GUMBO_TAG_TABLE, GUMBO_TAG_TT, GUMBO_TAG_U, GUMBO_TAG_UL, GUMBO_TAG_VAR});
}

// Start tags before which the builder doesn't reconstruct formatting.
bool keepsFormattingClosed(int tag)
{
    return isBlock(tag) || isTablePart(tag)
           || isOneOf(tag, {GUMBO_TAG_HR, GUMBO_TAG_BASE, GUMBO_TAG_BASEFONT, GUMBO_TAG_BGSOUND, GUMBO_TAG_LINK,
                            GUMBO_TAG_META, GUMBO_TAG_NOFRAMES, GUMBO_TAG_SCRIPT, GUMBO_TAG_STYLE,
                            GUMBO_TAG_TEMPLATE, GUMBO_TAG_TITLE, GUMBO_TAG_FRAMESET, GUMBO_TAG_FRAME,
                            GUMBO_TAG_PARAM, GUMBO_TAG_SOURCE, GUMBO_TAG_TRACK, GUMBO_TAG_TEXTAREA,
                            GUMBO_TAG_IFRAME, GUMBO_TAG_NOEMBED, GUMBO_TAG_PLAINTEXT});
}

// The open elements and the list of active formatting elements, as the tree
// builder keeps them, with what a tag does to them.
class TreeModel {
public:
    TreeModel(int depthLimit, qint64 workLimit) : m_depthLimit(depthLimit), m_workLimit(workLimit) {}

    bool isOver() const { return m_deepest > m_depthLimit || m_work > m_workLimit; }
    Estimate estimate() const { return {m_deepest, m_work}; }

    // Whether the text that follows the tag is read as text up to the
    // element's end tag (a script, a style, a title... of HTML, not of foreign
    // content).
    bool startTag(int tag, quint64 attributes, bool selfClosing)
    {
        m_work += depth();
        if (inForeignContent()) {
            if (!leavesForeignContent(tag)) {
                if (!selfClosing)
                    open(tag, m_open.back().space);
                return false;
            }
            while (inForeignContent())
                closeFrom(size() - 1);
        }
        if (topTag() == GUMBO_TAG_TEMPLATE) {
            // The first element in a template sets what it may hold.
            Open& element = m_open.back();
            if (element.holds == Anything)
                element.holds = tag == GUMBO_TAG_COL                                      ? Columns
                                : tag == GUMBO_TAG_TR                                     ? Rows
                                : isOneOf(tag, {GUMBO_TAG_TD, GUMBO_TAG_TH})              ? Cells
                                : isTablePart(tag)                                        ? Sections
                                                                                          : Content;
            if (element.holds == Columns && !isOneOf(tag, {GUMBO_TAG_COL, GUMBO_TAG_TEMPLATE}))
                return false;
        }
        if (isOneOf(tag, {GUMBO_TAG_HTML, GUMBO_TAG_HEAD, GUMBO_TAG_BODY}))
            return false; // merged into the ones there are
        // A frameset takes the body's place only before anything else stands
        // in it; after that, nothing of the page counts, and the builder's
        // work is no more than reading the rest. Taking the body for going
        // on is the safe side of both.
        if (tag == GUMBO_TAG_FRAMESET || tag == GUMBO_TAG_FRAME)
            return false;
        // Where the builder leaves out nearly every start tag.
        if (const int select = topmost(GUMBO_TAG_SELECT); select > topmost(GUMBO_TAG_TEMPLATE)) {
            // A select in a table ends where a part of the table comes.
            const int table = topmost(GUMBO_TAG_TABLE);
            const bool endsSelect =
                isOneOf(tag, {GUMBO_TAG_SELECT, GUMBO_TAG_INPUT, GUMBO_TAG_KEYGEN, GUMBO_TAG_TEXTAREA})
                || ((tag == GUMBO_TAG_TABLE || isTablePart(tag)) && table >= 0 && table < select);
            if (endsSelect)
                closeFrom(select); // and a select ends the one before
            else if (!isOneOf(tag, {GUMBO_TAG_OPTION, GUMBO_TAG_OPTGROUP, GUMBO_TAG_SCRIPT, GUMBO_TAG_TEMPLATE}))
                return false;
            if (tag == GUMBO_TAG_SELECT)
                return false;
        }
        if (tag == GUMBO_TAG_SVG || tag == GUMBO_TAG_MATH) {
            reconstructFormatting();
            if (!selfClosing)
                open(tag, tag == GUMBO_TAG_SVG ? Svg : Math);
            return false;
        }
        if (!closeImplied(tag))
            return false;
        if (!keepsFormattingClosed(tag))
            reconstructFormatting();
        if (isVoid(tag) || holdsText(tag)) {
            m_deepest = std::max(m_deepest, depth() + 1);
            return holdsText(tag); // nothing stays open
        }
        open(tag, Html);
        if (isFormatting(tag))
            addFormatting(tag, attributes);
        else if (setsMarker(tag))
            addEntry(-1, 0, -1);
        return tag == GUMBO_TAG_PLAINTEXT;
    }

    void endTag(int tag)
    {
        m_work += depth();
        if (inForeignContent()) {
            // Closes its element if only foreign elements stand above it.
            const int at = std::max(topmost(tag, Svg), topmost(tag, Math));
            if (at >= 0 && m_open.back().htmlBelow < at) {
                closeFrom(at);
                return;
            }
        }
        // In a select, only these end tags count, and in a select in a
        // table, those of the table's parts, which end the select first.
        if (const int select = topmost(GUMBO_TAG_SELECT);
            select > topmost(GUMBO_TAG_TEMPLATE)
            && !isOneOf(tag, {GUMBO_TAG_OPTION, GUMBO_TAG_OPTGROUP, GUMBO_TAG_SELECT, GUMBO_TAG_TEMPLATE})) {
            const int table = topmost(GUMBO_TAG_TABLE);
            const int named = topmost(tag);
            if (table < 0 || table > select || (tag != GUMBO_TAG_TABLE && !isTablePart(tag)) || named < 0
                || named < std::max(table, topmost(GUMBO_TAG_TEMPLATE)))
                return;
            closeFrom(select);
        }
        if (isFormatting(tag)) {
            formattingEndTag(tag);
            return;
        }
        if (tag == GUMBO_TAG_BR) {
            startTag(GUMBO_TAG_BR, 0, false); // taken for a <br>
            return;
        }
        int at = topmost(tag);
        if (isHeading(tag)) {
            at = topmostOf({GUMBO_TAG_H1, GUMBO_TAG_H2, GUMBO_TAG_H3, GUMBO_TAG_H4, GUMBO_TAG_H5, GUMBO_TAG_H6});
        } else if (isOneOf(tag, {GUMBO_TAG_HTML, GUMBO_TAG_BODY, GUMBO_TAG_HEAD})) {
            return;
        }
        if (tag == GUMBO_TAG_TEMPLATE) {
            if (at >= 0)
                closeFrom(at);
            return;
        }
        if (tag == GUMBO_TAG_FORM && topmost(GUMBO_TAG_TEMPLATE) < 0) {
            // The builder takes the form out alone and leaves all in it open.
            m_inForm = false;
            if (at >= 0 && at > scopeBoundary())
                takeOut(at);
            return;
        }
        if (at < 0)
            return;
        if (tag == GUMBO_TAG_TABLE || isTablePart(tag)) {
            if (at > (tag == GUMBO_TAG_TABLE ? topmost(GUMBO_TAG_TEMPLATE) : tableScope()))
                closeFrom(at);
        } else if (tag == GUMBO_TAG_SELECT && at > topmost(GUMBO_TAG_TEMPLATE)) {
            closeFrom(at);
        } else if (isBlock(tag)
                   || isOneOf(tag, {GUMBO_TAG_BUTTON, GUMBO_TAG_APPLET, GUMBO_TAG_MARQUEE, GUMBO_TAG_OBJECT})) {
            int scope = scopeBoundary();
            if (tag == GUMBO_TAG_P)
                scope = std::max(scope, topmost(GUMBO_TAG_BUTTON));
            if (tag == GUMBO_TAG_LI)
                scope = std::max(scope, topmostOf({GUMBO_TAG_OL, GUMBO_TAG_UL}));
            if (scope <= at) // in scope: no boundary above it (it may be one itself)
                closeFrom(at);
        } else if (!specialAbove(at)) {
            closeFrom(at);
        }
    }

    void text(QStringView text)
    {
        if (text.isEmpty())
            return;
        reconstructFormatting();
        // Before each character the builder looks for the last formatting
        // element among the open ones, from the bottom.
        qint64 search = 1;
        if (m_last >= 0 && m_entries[size_t(m_last)].open >= 0)
            search = m_entries[size_t(m_last)].open + 3;
        m_work += qint64(text.size()) * search;
    }

private:
    enum Space : char { Html, Svg, Math };
    // What a template holds, once its first element has come: columns, the
    // sections of a table, rows, cells, or other content (where the parts
    // of a table don't count).
    enum Holds : char { Anything, Columns, Sections, Rows, Cells, Content };

    struct Open {
        int tag;
        Space space;
        int below;        // the next open element of the same name and space further down, or -1
        int specialBelow; // the nearest special element at or below this one, or -1
        int stopBelow;    // the same, but for address, div and p
        int htmlBelow;    // the nearest element of HTML at or below this one, or -1
        int entry = -1;   // its entry in the formatting list, or -1
        Holds holds = Anything; // of a template
    };
    // An entry of the formatting list, or a marker (tag -1). Entries are
    // only ever added at the end, so their numbers follow the list's order.
    struct Entry {
        int tag;
        quint64 key; // the tag with its attributes
        int open;    // where its element stands among the open ones, or -1
        int previous = -1;
        int next = -1;
        bool live = true;
    };

    static bool isIntegrationPoint(int tag, Space space)
    {
        return space == Svg ? isOneOf(tag, {GUMBO_TAG_FOREIGNOBJECT, GUMBO_TAG_DESC, GUMBO_TAG_TITLE})
               : space == Math
                   ? isOneOf(tag, {GUMBO_TAG_MI, GUMBO_TAG_MO, GUMBO_TAG_MN, GUMBO_TAG_MS, GUMBO_TAG_MTEXT,
                                   GUMBO_TAG_ANNOTATION_XML})
                   : false;
    }
    // Where the topmost open element of a name and space is looked up.
    static size_t slot(int tag, Space space)
    {
        constexpr int known = GUMBO_TAG_LAST + 1;
        return tag < known ? size_t(tag + space * known) : size_t(3 * known + (tag - known) * 3 + space);
    }

    int size() const { return int(m_open.size()); }
    int topTag() const { return m_open.empty() || m_open.back().space != Html ? -1 : m_open.back().tag; }
    int depth() const { return size() + 2; } // with html and body
    bool inForeignContent() const
    {
        return !m_open.empty() && m_open.back().space != Html
               && !isIntegrationPoint(m_open.back().tag, m_open.back().space);
    }

    int topmost(int tag, Space space = Html) const
    {
        const size_t at = slot(tag, space);
        return at < m_topmost.size() ? m_topmost[at] : -1;
    }
    int topmostOf(std::initializer_list<GumboTag> tags, Space space = Html) const
    {
        int found = -1;
        for (const GumboTag tag : tags)
            found = std::max(found, topmost(tag, space));
        return found;
    }
    // The elements that end the sight of an end tag or of an implied close.
    int scopeBoundary() const
    {
        return std::max({topmostOf({GUMBO_TAG_TABLE, GUMBO_TAG_TD, GUMBO_TAG_TH, GUMBO_TAG_CAPTION,
                                    GUMBO_TAG_APPLET, GUMBO_TAG_MARQUEE, GUMBO_TAG_OBJECT, GUMBO_TAG_TEMPLATE}),
                         topmostOf({GUMBO_TAG_FOREIGNOBJECT, GUMBO_TAG_DESC, GUMBO_TAG_TITLE}, Svg),
                         topmostOf({GUMBO_TAG_MI, GUMBO_TAG_MO, GUMBO_TAG_MN, GUMBO_TAG_MS, GUMBO_TAG_MTEXT,
                                    GUMBO_TAG_ANNOTATION_XML},
                                   Math)});
    }
    int tableScope() const { return topmostOf({GUMBO_TAG_TABLE, GUMBO_TAG_TEMPLATE}); }
    bool specialAbove(int at) const { return !m_open.empty() && m_open.back().specialBelow > at; }

    void open(int tag, Space space)
    {
        const size_t at = slot(tag, space);
        if (at >= m_topmost.size())
            m_topmost.resize(at + 1, -1);
        const int index = size();
        const Open* below = m_open.empty() ? nullptr : &m_open.back();
        const bool special = space == Html ? isSpecial(tag) : isIntegrationPoint(tag, space);
        const bool stop = special && (space != Html || !isOneOf(tag, {GUMBO_TAG_ADDRESS, GUMBO_TAG_DIV, GUMBO_TAG_P}));
        m_open.push_back({tag, space, m_topmost[at], special ? index : below ? below->specialBelow : -1,
                          stop ? index : below ? below->stopBelow : -1,
                          space == Html ? index : below ? below->htmlBelow : -1});
        m_topmost[at] = index;
        m_deepest = std::max(m_deepest, depth());
    }

    void dropTop()
    {
        m_topmost[slot(m_open.back().tag, m_open.back().space)] = m_open.back().below;
        m_open.pop_back();
    }

    // Closes the element at `at` and all above it. Formatting elements among
    // them stay in the list, to be opened again; the end of a cell or of
    // another marker's element takes the formatting inside it off the list.
    void closeFrom(int at)
    {
        while (size() > std::max(at, 0)) {
            const Open closed = m_open.back();
            dropTop();
            if (closed.entry >= 0 && m_entries[size_t(closed.entry)].live)
                m_entries[size_t(closed.entry)].open = -1;
            if (closed.space == Html && setsMarker(closed.tag))
                clearToLastMarker();
        }
    }
    void closeTopmost(int tag)
    {
        if (const int at = topmost(tag); at >= 0)
            closeFrom(at);
    }

    // Takes the element at `at` out of the open ones, and nothing above it.
    void takeOut(int at)
    {
        const std::vector<Open> above(m_open.begin() + at + 1, m_open.end());
        while (size() > at)
            dropTop();
        for (const Open& element : above) {
            open(element.tag, element.space);
            m_open.back().entry = element.entry;
            m_open.back().holds = element.holds;
            if (element.entry >= 0)
                m_entries[size_t(element.entry)].open = size() - 1;
        }
        m_work += qint64(above.size());
    }

    // What a start tag closes before the builder opens its element; false
    // when the builder opens nothing for it.
    bool closeImplied(int tag)
    {
        // A column group takes nothing but columns (and templates).
        if (topTag() == GUMBO_TAG_COLGROUP && tag != GUMBO_TAG_COL && tag != GUMBO_TAG_TEMPLATE)
            closeFrom(size() - 1);
        const int scope = scopeBoundary();
        if (isTablePart(tag) || tag == GUMBO_TAG_COL)
            return closeForTablePart(tag);
        if (tag == GUMBO_TAG_FORM || tag == GUMBO_TAG_ISINDEX) {
            // A form in a form is left out, but in a template; an isindex
            // is a form of its own, closed at once.
            if (m_inForm && topmost(GUMBO_TAG_TEMPLATE) < 0)
                return false;
            m_inForm = m_inForm || (tag == GUMBO_TAG_FORM && topmost(GUMBO_TAG_TEMPLATE) < 0);
        }
        // (A table closes a p too, but not on a page without a doctype.)
        const bool closesParagraph =
            (isBlock(tag) && tag != GUMBO_TAG_TABLE)
            || isOneOf(tag, {GUMBO_TAG_HR, GUMBO_TAG_XMP, GUMBO_TAG_PLAINTEXT, GUMBO_TAG_ISINDEX});
        if (closesParagraph && topmost(GUMBO_TAG_P) > std::max(scope, topmost(GUMBO_TAG_BUTTON)))
            closeTopmost(GUMBO_TAG_P);
        switch (tag) {
        case GUMBO_TAG_LI: case GUMBO_TAG_DD: case GUMBO_TAG_DT:
            // Closes the item that is met first from the top, unless a block
            // other than address, div or p comes before it.
            if (const int item = tag == GUMBO_TAG_LI ? topmost(GUMBO_TAG_LI) : topmostOf({GUMBO_TAG_DD, GUMBO_TAG_DT});
                item >= 0 && m_open.back().stopBelow == item)
                closeFrom(item);
            return true;
        case GUMBO_TAG_OPTION: case GUMBO_TAG_OPTGROUP:
            if (topTag() == GUMBO_TAG_OPTION)
                closeFrom(size() - 1);
            // In a select, an optgroup also ends the one before.
            if (tag == GUMBO_TAG_OPTGROUP && topTag() == GUMBO_TAG_OPTGROUP && topmost(GUMBO_TAG_SELECT) >= 0)
                closeFrom(size() - 1);
            return true;
        case GUMBO_TAG_A: case GUMBO_TAG_NOBR:
            // An a in an a ends the first, and it leaves the formatting list.
            if (const int entry = lastEntry(tag); entry >= 0) {
                const int at = m_entries[size_t(entry)].open;
                removeEntry(entry);
                if (at >= 0 && !specialAbove(at) && at > scope)
                    closeFrom(at);
            }
            return true;
        case GUMBO_TAG_BUTTON:
            if (topmost(GUMBO_TAG_BUTTON) > scope)
                closeTopmost(GUMBO_TAG_BUTTON);
            return true;
        case GUMBO_TAG_TABLE: {
            // A table straight in a table ends the first; straight in a
            // template of table parts, it is left out.
            const int context = topmostOf({GUMBO_TAG_TABLE, GUMBO_TAG_TD, GUMBO_TAG_TH, GUMBO_TAG_CAPTION,
                                           GUMBO_TAG_TEMPLATE});
            if (context >= 0 && context == topmost(GUMBO_TAG_TABLE))
                closeFrom(context);
            else if (context >= 0 && context == topmost(GUMBO_TAG_TEMPLATE)
                     && m_open[size_t(context)].holds != Anything && m_open[size_t(context)].holds != Content)
                return false;
            return true;
        }
        case GUMBO_TAG_RB: case GUMBO_TAG_RP: case GUMBO_TAG_RT: case GUMBO_TAG_RTC:
            // In a ruby, the end tags that HTML lets a page leave out are
            // taken as given.
            if (topmost(GUMBO_TAG_RUBY) > scope) {
                while (isOneOf(topTag(), {GUMBO_TAG_DD, GUMBO_TAG_DT, GUMBO_TAG_LI, GUMBO_TAG_OPTION,
                                          GUMBO_TAG_OPTGROUP, GUMBO_TAG_P, GUMBO_TAG_RB, GUMBO_TAG_RP, GUMBO_TAG_RT})
                       || (topTag() == GUMBO_TAG_RTC && tag != GUMBO_TAG_RT && tag != GUMBO_TAG_RP))
                    closeFrom(size() - 1);
            }
            return true;
        default:
            if (isHeading(tag) && isHeading(topTag()))
                closeFrom(size() - 1);
            return true;
        }
    }

    // The parts of a table count only in a table (or a template). A part
    // ends the cell, row or section it can't stand in, and what stands
    // between the table and the part (put in front of the table in the
    // tree) closes; a row gets its section, a cell its row.
    bool closeForTablePart(int tag)
    {
        const int scope = tableScope();
        if (scope < 0 || (scope == topmost(GUMBO_TAG_TEMPLATE) && m_open[size_t(scope)].holds == Content))
            return false;
        if (const int cell = topmostOf({GUMBO_TAG_TD, GUMBO_TAG_TH, GUMBO_TAG_CAPTION}); cell > scope)
            closeFrom(cell);
        const bool cell = tag == GUMBO_TAG_TD || tag == GUMBO_TAG_TH;
        if (const int row = topmost(GUMBO_TAG_TR); row > scope && !cell)
            closeFrom(row);
        if (const int section = topmostOf({GUMBO_TAG_TBODY, GUMBO_TAG_THEAD, GUMBO_TAG_TFOOT});
            section > scope && !cell && tag != GUMBO_TAG_TR)
            closeFrom(section);
        const int context = topmostOf({GUMBO_TAG_TABLE, GUMBO_TAG_TEMPLATE, GUMBO_TAG_TBODY, GUMBO_TAG_THEAD,
                                       GUMBO_TAG_TFOOT, GUMBO_TAG_TR});
        if (context != topmost(GUMBO_TAG_TEMPLATE)) // (what a template holds stays open, to be safe)
            closeFrom(context + 1);
        // A template stands for what its first part made it.
        const Holds holds = topTag() == GUMBO_TAG_TEMPLATE ? m_open.back().holds : Anything;
        if ((topTag() == GUMBO_TAG_TABLE || holds == Sections) && (cell || tag == GUMBO_TAG_TR))
            open(GUMBO_TAG_TBODY, Html);
        if (cell && (isOneOf(topTag(), {GUMBO_TAG_TBODY, GUMBO_TAG_THEAD, GUMBO_TAG_TFOOT}) || holds == Rows))
            open(GUMBO_TAG_TR, Html);
        if (tag == GUMBO_TAG_COL && (topTag() == GUMBO_TAG_TABLE || holds == Sections))
            open(GUMBO_TAG_COLGROUP, Html);
        return true;
    }

    void formattingEndTag(int tag)
    {
        const int entry = lastEntry(tag);
        if (entry < 0) {
            if (const int at = topmost(tag); at >= 0 && !specialAbove(at))
                closeFrom(at);
            return;
        }
        const int at = m_entries[size_t(entry)].open;
        if (at < 0) {
            removeEntry(entry); // closed already: it just leaves the list
            return;
        }
        if (at < scopeBoundary())
            return; // out of scope: ignored
        if (specialAbove(at))
            return; // the builder moves the blocks above it rather than closing them
        removeEntry(entry);
        closeFrom(at);
    }

    // The builder opens again, in their order, the formatting elements of
    // the list after its last marker or last open one.
    void reconstructFormatting()
    {
        if (m_last < 0 || m_entries[size_t(m_last)].tag < 0 || m_entries[size_t(m_last)].open >= 0)
            return;
        int entry = m_last;
        for (int previous = m_entries[size_t(entry)].previous;
             previous >= 0 && m_entries[size_t(previous)].tag >= 0 && m_entries[size_t(previous)].open < 0;
             previous = m_entries[size_t(previous)].previous)
            entry = previous;
        for (; entry >= 0 && !isOver(); entry = m_entries[size_t(entry)].next) {
            open(m_entries[size_t(entry)].tag, Html);
            m_open.back().entry = entry;
            m_entries[size_t(entry)].open = size() - 1;
            m_work += MakingAnElement;
        }
    }

    int lastMarker() const { return m_markers.empty() ? -1 : m_markers.back(); }

    // The last entry of that tag after the last marker, or -1.
    int lastEntry(int tag)
    {
        if (size_t(tag) >= m_entriesOfTag.size())
            return -1;
        std::vector<int>& entries = m_entriesOfTag[size_t(tag)];
        while (!entries.empty() && !m_entries[size_t(entries.back())].live)
            entries.pop_back();
        return !entries.empty() && entries.back() > lastMarker() ? entries.back() : -1;
    }

    void addFormatting(int tag, quint64 attributes)
    {
        // At most three alike after the last marker: a fourth pushes out the
        // earliest of them.
        const quint64 key = attributes ^ (quint64(tag) * 0x9E3779B97F4A7C15ull);
        std::vector<int>& alike = m_entriesOfKey[key];
        int found = 0;
        int skipped = 0;
        for (auto it = alike.rbegin(); it != alike.rend() && *it > lastMarker(); ++it) {
            if (!m_entries[size_t(*it)].live) {
                ++skipped;
                continue;
            }
            if (++found == 3) {
                removeEntry(*it);
                break;
            }
        }
        if (skipped > 16) // drop the entries that have left the list
            std::erase_if(alike, [this](int e) { return !m_entries[size_t(e)].live; });
        const int entry = addEntry(tag, key, size() - 1);
        m_open.back().entry = entry;
        alike.push_back(entry);
        if (size_t(tag) >= m_entriesOfTag.size())
            m_entriesOfTag.resize(size_t(tag) + 1);
        m_entriesOfTag[size_t(tag)].push_back(entry);
    }

    int addEntry(int tag, quint64 key, int open)
    {
        const int entry = int(m_entries.size());
        m_entries.push_back({tag, key, open});
        m_entries.back().previous = m_last;
        if (m_last >= 0)
            m_entries[size_t(m_last)].next = entry;
        m_last = entry;
        if (tag < 0)
            m_markers.push_back(entry);
        return entry;
    }

    void removeEntry(int entry)
    {
        Entry& removed = m_entries[size_t(entry)];
        if (removed.previous >= 0)
            m_entries[size_t(removed.previous)].next = removed.next;
        if (removed.next >= 0)
            m_entries[size_t(removed.next)].previous = removed.previous;
        else
            m_last = removed.previous;
        removed.live = false;
        if (removed.tag < 0)
            m_markers.pop_back();
    }

    void clearToLastMarker()
    {
        while (m_last >= 0) {
            const bool marker = m_entries[size_t(m_last)].tag < 0;
            removeEntry(m_last);
            if (marker)
                break;
        }
    }

    const int m_depthLimit;
    const qint64 m_workLimit;
    int m_deepest = 2;
    qint64 m_work = 0;
    std::vector<Open> m_open;
    std::vector<int> m_topmost; // by slot: where the topmost open element stands, or -1
    std::vector<Entry> m_entries;
    int m_last = -1; // the list's last entry
    std::vector<int> m_markers;
    std::vector<std::vector<int>> m_entriesOfTag;
    QHash<quint64, std::vector<int>> m_entriesOfKey;
    bool m_inForm = false; // a form outside templates is open
};

bool isSpace(char16_t c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\f' || c == u'\r';
}

bool isLetter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

// Goes through the page's markup as the tokenizer does, as far as tags,
// comments and text go, and hands them to the model.
class Scanner {
public:
    Scanner(QStringView html, TreeModel& model) : m_html(html), m_model(model) {}

    void run()
    {
        while (!m_model.isOver() && m_at < m_html.size()) {
            const qsizetype textStart = m_at;
            qsizetype next = m_html.indexOf(u'<', m_at);
            if (next < 0)
                next = m_html.size();
            m_at = next;
            if (m_at + 1 >= m_html.size()) {
                m_model.text(m_html.sliced(textStart));
                return;
            }
            const char16_t after = m_html[m_at + 1].unicode();
            if (after == u'!' || after == u'?' || (after == u'/' && !startsName(m_at + 2))) {
                m_model.text(m_html.sliced(textStart, m_at - textStart));
                skipMarkup();
            } else if (after == u'/') {
                m_model.text(m_html.sliced(textStart, m_at - textStart));
                m_at += 2;
                m_model.endTag(readTag().id);
            } else if (isLetter(after)) {
                m_model.text(m_html.sliced(textStart, m_at - textStart));
                ++m_at;
                const Tag tag = readTag();
                if (!m_model.startTag(tag.id, tag.attributes, tag.selfClosing))
                    continue;
                if (tag.id == GUMBO_TAG_PLAINTEXT) {
                    m_model.text(m_html.sliced(m_at)); // all the rest is text
                    return;
                }
                skipPast(QStringLiteral("</") + m_html.sliced(tag.nameStart, tag.nameLength).toString());
            } else {
                ++m_at; // a "<" of the text
                m_model.text(m_html.sliced(textStart, m_at - textStart));
            }
        }
    }

private:
    struct Tag {
        int id = 0;
        qsizetype nameStart = 0;
        qsizetype nameLength = 0;
        quint64 attributes = 0;
        bool selfClosing = false;
    };

    bool startsName(qsizetype at) const { return at < m_html.size() && isLetter(m_html[at].unicode()); }

    void skipPast(QStringView end)
    {
        const qsizetype found = m_html.indexOf(end, m_at, Qt::CaseInsensitive);
        m_at = found < 0 ? m_html.size() : found + end.size();
    }

    // A comment, a doctype or the like, from its "<" past its end.
    void skipMarkup()
    {
        if (m_html.sliced(m_at).startsWith(u"<!--")) {
            m_at += 4;
            skipPast(u"-->");
        } else {
            skipPast(u">");
        }
    }

    // A tag's name and attributes, from its first letter past its ">".
    Tag readTag()
    {
        Tag tag;
        tag.nameStart = m_at;
        skipName(true);
        tag.nameLength = m_at - tag.nameStart;
        tag.id = idOf(m_html.sliced(tag.nameStart, tag.nameLength));
        const qsizetype attributesStart = m_at;
        for (;;) {
            while (m_at < m_html.size() && isSpace(m_html[m_at].unicode()))
                ++m_at;
            if (m_at >= m_html.size())
                break;
            const QChar c = m_html[m_at++];
            if (c == u'>')
                break;
            if (c == u'/') {
                tag.selfClosing = m_at < m_html.size() && m_html[m_at] == u'>';
                continue;
            }
            --m_at;
            skipName(true); // an attribute's name
            while (m_at < m_html.size() && isSpace(m_html[m_at].unicode()))
                ++m_at;
            if (m_at < m_html.size() && m_html[m_at] == u'=') {
                ++m_at;
                while (m_at < m_html.size() && isSpace(m_html[m_at].unicode()))
                    ++m_at;
                if (m_at < m_html.size() && (m_html[m_at] == u'"' || m_html[m_at] == u'\'')) {
                    const QChar quote = m_html[m_at++];
                    const qsizetype end = m_html.indexOf(quote, m_at);
                    m_at = end < 0 ? m_html.size() : end + 1;
                } else {
                    skipName(false);
                }
            }
        }
        tag.attributes = qHash(m_html.sliced(attributesStart, m_at - attributesStart).trimmed());
        return tag;
    }

    // A name up to a blank, ">" or, after its first character, "/" or "=";
    // or an unquoted value, up to a blank or ">".
    void skipName(bool name)
    {
        const qsizetype start = m_at;
        while (m_at < m_html.size()) {
            const QChar c = m_html[m_at];
            if (isSpace(c.unicode()) || c == u'>' || (name && m_at > start && (c == u'/' || c == u'=')))
                break;
            ++m_at;
        }
    }

    int idOf(QStringView name)
    {
        char lower[32];
        if (name.size() < qsizetype(sizeof lower)) {
            bool ascii = true;
            for (qsizetype i = 0; i < name.size(); ++i) {
                const char16_t c = name[i].unicode();
                ascii = ascii && c < 0x80;
                lower[i] = char(c >= u'A' && c <= u'Z' ? c + (u'a' - u'A') : c);
            }
            if (ascii) {
                const GumboTag known = gumbo_tagn_enum(lower, unsigned(name.size()));
                if (known != GUMBO_TAG_UNKNOWN)
                    return known;
            }
        }
        const size_t hash = qHash(name.toString().toLower());
        const auto found = m_otherTags.constFind(hash);
        if (found != m_otherTags.constEnd())
            return *found;
        const int id = GUMBO_TAG_LAST + 1 + int(m_otherTags.size());
        m_otherTags.insert(hash, id);
        return id;
    }

    QStringView m_html;
    TreeModel& m_model;
    qsizetype m_at = 0;
    QHash<size_t, int> m_otherTags;
};

} // namespace

Estimate estimate(QStringView html, int depthLimit, qint64 workLimit)
{
    TreeModel model(depthLimit, workLimit);
    Scanner(html, model).run();
    return model.estimate();
}

} // namespace parseestimate
