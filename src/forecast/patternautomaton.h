#pragma once

// Many texts to look for at once, in one pass over a text (the Aho–Corasick
// automaton). The patterns are numbered by their place in the list; the same
// text may stand in the list more than once. Texts are read one UTF-16 unit
// at a time, each unit given as the value it is compared by (see
// foldedUnit): callers hand in patterns and texts folded the same way.

#include <QHash>
#include <QtGlobal>

#include <functional>
#include <limits>
#include <span>
#include <vector>

// The value a UTF-16 unit is compared by in a replace that ignores case: a
// low surrogate that follows a high one stands for the folded code point of
// the pair (0x10000 and above); any other unit is folded alone, and a
// surrogate alone folds to itself. `previous` is the unit before, or 0.
char32_t foldedUnit(char16_t unit, char16_t previous);

// The patterns one after another, as folded units; pattern i is
// units[begins[i], begins[i + 1]).
struct PatternList {
    std::vector<char32_t> units;
    std::vector<qint32> begins{0};

    qsizetype count() const { return qsizetype(begins.size()) - 1; }
    std::span<const char32_t> at(qsizetype i) const
    {
        return std::span<const char32_t>(units).subspan(size_t(begins[size_t(i)]),
                                                        size_t(begins[size_t(i) + 1] - begins[size_t(i)]));
    }
    // Closes the pattern whose units were appended last.
    void endPattern() { begins.push_back(qint32(units.size())); }
};

class PatternAutomaton {
public:
    using State = qint32;
    // Folded units that occur in a pattern are numbered from 1; 0 is any other.
    using Symbol = qint32;

    // How much a build's work is reported, as it goes, to pace it.
    using Worked = std::function<void(qsizetype steps)>;

    // No pattern may be empty. The build reports its work (units taken in,
    // states linked and placed) to `worked` a few hundred steps at a time,
    // so that the caller can let pending events run.
    explicit PatternAutomaton(const PatternList& patterns, const Worked& worked = {});

    // Gives the memory back one array at a time, calling `afterEach` after
    // each: on a long list, even that takes its time. Nothing may be looked
    // up after.
    void release(const std::function<void()>& afterEach);

    static constexpr State root() { return 0; }

    Symbol symbolOf(char32_t folded) const
    {
        if (folded < 0x10000)
            return m_symbolOfUnit[folded];
        return m_symbolOfPair.value(folded, 0);
    }

    // The state after reading `symbol` in `state`: the longest end of the
    // text read so far that begins some pattern. A step costs the same
    // however many different units may follow a state.
    State step(State state, Symbol symbol) const
    {
        if (symbol == 0)
            return root(); // a unit that no pattern holds
        for (;;) {
            if (const State next = child(state, symbol); next >= 0)
                return next;
            if (state == root())
                return root();
            state = m_nodes[size_t(state)].fail;
        }
    }

    // What firstPatternFrom has found for the states it looked at. While
    // `from` doesn't go down, an answer found stays the answer as long as
    // it is at least `from`; a smaller `from` than the last forgets all.
    // Its memory is filled as `worked` is told, like a build's.
    class Memo {
    public:
        Memo(const PatternAutomaton& automaton, const Worked& worked = {});

    private:
        friend class PatternAutomaton;
        static constexpr qint32 None = std::numeric_limits<qint32>::max();
        std::vector<qint32> m_round; // the round in which the answer was found
        std::vector<qint32> m_found; // a pattern number, or None
        qint32 m_currentRound = 1;
        qint32 m_lastFrom = 0;
        std::vector<State> m_toFind;
    };

    // The lowest pattern number of at least `from` among the patterns that
    // end where the text read has led to `state`; -1 when there is none.
    // Each state on the way down the chain of patterns that end there is
    // counted in `steps`; with the answers the memo keeps, a run of looks
    // whose `from` only grows costs about one step a look, however long the
    // chains.
    qint32 firstPatternFrom(State state, qint32 from, Memo& memo, qsizetype& steps) const;

private:
    // A state's children: a short list of siblings, or for a state with
    // more than a few, a table by symbol.
    static constexpr qint32 ListedChildren = 8;

    State child(State state, Symbol symbol) const
    {
        if (state == root())
            return m_rootChild[size_t(symbol)];
        const Node& node = m_nodes[size_t(state)];
        if (node.children <= ListedChildren) {
            for (State c = node.firstChild; c >= 0;) {
                const Node& sibling = m_nodes[size_t(c)];
                if (sibling.symbol == symbol)
                    return c;
                c = sibling.nextSibling;
            }
            return -1;
        }
        for (size_t at = slotOf(state, symbol);; at = (at + 1) & m_mask) {
            const Child& found = m_table[at];
            if (found.child < 0 || (found.parent == state && found.symbol == symbol))
                return found.child;
        }
    }
    size_t slotOf(State state, Symbol symbol) const
    {
        const quint64 key = (quint64(quint32(state)) << 32) | quint32(symbol);
        return size_t((key * 0x9E3779B97F4A7C15ull) >> 32) & m_mask;
    }
    State addChild(State state, Symbol symbol);
    void putInTable(State parent, Symbol symbol, State child);
    void linkFailures();
    void groupPatternNumbers(const std::vector<State>& endState);
    // Steps of the build's work, one unless told.
    void step(qsizetype steps = 1)
    {
        m_steps += steps;
        if (m_steps >= 256) {
            if (m_worked && *m_worked)
                (*m_worked)(m_steps);
            m_steps = 0;
        }
    }

    const Worked* m_worked = nullptr; // while the build lasts
    qsizetype m_steps = 0;

    std::vector<Symbol> m_symbolOfUnit;      // by folded unit below 0x10000
    QHash<char32_t, Symbol> m_symbolOfPair; // by folded code point of a surrogate pair
    std::vector<State> m_rootChild;         // by symbol

    struct Node {
        State firstChild = -1;
        State nextSibling = -1;
        Symbol symbol = 0;
        qint32 children = 0;
        State fail = 0;
        // The nearest state on the failure chain (this one included) where a
        // pattern ends, or -1; and the highest and lowest pattern numbers
        // along that chain.
        State output = -1;
        qint32 highestOnChain = -1;
        qint32 lowestOnChain = -1;
    };
    std::vector<Node> m_nodes;
    // The children of the states with many, by parent and symbol: open
    // addressing, a free slot has no child.
    struct Child {
        State parent = -1;
        Symbol symbol = 0;
        State child = -1;
    };
    std::vector<Child> m_table;
    size_t m_mask = 0;
    size_t m_inTable = 0;
    // The numbers of the patterns that end in each state, ascending:
    // m_numbers[m_numbersBegin[s] .. m_numbersBegin[s + 1]).
    std::vector<qint32> m_numbersBegin;
    std::vector<qint32> m_numbers;
};
