#pragma once

// Many texts to look for at once, in one pass over a text (the Aho–Corasick
// automaton). The patterns are numbered by their place in the list; the same
// text may stand in the list more than once. Characters are compared as they
// are given: callers hand in case-folded patterns and fold the text the same
// way.

#include <QString>
#include <QtGlobal>

#include <functional>
#include <vector>

// The patterns one after another in one text; pattern i is
// characters[begins[i], begins[i + 1]).
struct PatternList {
    QString characters;
    std::vector<qint32> begins{0};

    qsizetype count() const { return qsizetype(begins.size()) - 1; }
    QStringView at(qsizetype i) const
    {
        return QStringView(characters).sliced(begins[size_t(i)], begins[size_t(i) + 1] - begins[size_t(i)]);
    }
    // Closes the pattern whose characters were appended last.
    void endPattern() { begins.push_back(qint32(characters.size())); }
};

class PatternAutomaton {
public:
    using State = qint32;

    // No pattern may be empty. A long build calls `pause` now and then, so
    // that the caller can let pending events run.
    explicit PatternAutomaton(const PatternList& patterns, const std::function<void()>& pause = {});

    // How much work (characters taken in, states linked) lies between two
    // calls of `pause`.
    static constexpr qsizetype PauseEvery = 1 << 16;

    static constexpr State root() { return 0; }

    // The state after reading `c` in state `state`: the longest end of the
    // text read so far that begins some pattern.
    State step(State state, char16_t c) const
    {
        const qint32 symbol = m_symbolOf[c];
        if (symbol == 0)
            return root(); // a character that no pattern holds
        for (;;) {
            if (const State next = child(state, symbol); next >= 0)
                return next;
            if (state == root())
                return root();
            state = m_nodes[size_t(state)].fail;
        }
    }

    // The lowest pattern number of at least `from` among the patterns that
    // end where the text read has led to `state`; -1 when there is none.
    qint32 firstPatternFrom(State state, qint32 from) const;

    qsizetype longestPattern() const { return m_longest; }

private:
    State child(State state, qint32 symbol) const
    {
        if (state == root())
            return m_rootChild[size_t(symbol)];
        for (State c = m_nodes[size_t(state)].firstChild; c >= 0;) {
            const Node& node = m_nodes[size_t(c)];
            if (node.symbol == symbol)
                return c;
            c = node.nextSibling;
        }
        return -1;
    }
    State addChild(State state, qint32 symbol);
    void linkFailures(const std::function<void()>& pause);
    void groupPatternNumbers(const std::vector<State>& endState);

    // Characters that occur in a pattern are numbered from 1; 0 is any other.
    std::vector<qint32> m_symbolOf;
    std::vector<State> m_rootChild;

    // The trie, each state's children as a list of siblings; what a step
    // and a look at the patterns need of a state lies together.
    struct Node {
        State firstChild = -1;
        State nextSibling = -1;
        qint32 symbol = 0;
        State fail = 0;
        // The nearest state on the failure chain (this one included) where a
        // pattern ends, or -1; and the highest pattern number along that chain.
        State output = -1;
        qint32 highestOnChain = -1;
    };
    std::vector<Node> m_nodes;
    // The numbers of the patterns that end in each state, ascending:
    // m_numbers[m_numbersBegin[s] .. m_numbersBegin[s + 1]).
    std::vector<qint32> m_numbersBegin;
    std::vector<qint32> m_numbers;

    qsizetype m_longest = 0;
};
