#pragma once

// What parsing a page will take, told from its tags in one pass before the
// page is parsed: how deep its elements nest, and how much work the tree
// builder's searches through its open elements come to.
//
// It follows the tree builder where the builder makes a tree deep: a start
// tag opens an element; an end tag closes its element and all opened after
// it, but only where the builder does (not out of scope, nor past an unclosed
// block when the element is an inline one); the end tags that HTML lets a
// page leave out (of p, li, dd, dt, option, headings, table rows, cells and
// sections) are taken as given; void elements, the text of scripts, styles and
// titles, and self-closed foreign elements open nothing; and formatting
// elements (b, font, a...) that were closed along with others open again
// before the next text or inline tag, as the builder reconstructs them, up to
// three alike. Where it can't tell, it rather takes the tree for deeper.
//
// The work counts, for every tag, a search through all open elements; for
// every character of text, the search for the last formatting element that
// the builder makes before it adds the character; and for every element
// opened again, the making of an element.

#include <QStringView>
#include <QtGlobal>

namespace parseestimate {

struct Estimate {
    int depth = 0; // the deepest the open elements go, html and body included
    qint64 work = 0;
};

// Stops early, once the depth goes beyond `depthLimit` or the work beyond
// `workLimit`.
Estimate estimate(QStringView html, int depthLimit, qint64 workLimit);

} // namespace parseestimate
