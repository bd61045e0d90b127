#include "forecast/patternautomaton.h"

#include <algorithm>

PatternAutomaton::PatternAutomaton(const PatternList& patterns, const std::function<void()>& pause)
    : m_symbolOf(0x10000, 0)
{
    qint32 symbols = 0;
    for (const QChar c : patterns.characters) {
        qint32& symbol = m_symbolOf[c.unicode()];
        if (symbol == 0)
            symbol = ++symbols;
    }
    m_rootChild.assign(size_t(symbols) + 1, -1);
    // At most one state for each character; pages that stay unused cost nothing.
    m_nodes.reserve(size_t(patterns.characters.size()) + 1);
    m_nodes.emplace_back();

    std::vector<State> endState;
    endState.reserve(size_t(patterns.count()));
    qsizetype taken = 0;
    for (qsizetype i = 0; i < patterns.count(); ++i) {
        const QStringView pattern = patterns.at(i);
        if (pause && (taken += pattern.size()) >= PauseEvery) {
            taken = 0;
            pause();
        }
        State state = root();
        for (const QChar c : pattern) {
            const qint32 symbol = m_symbolOf[c.unicode()];
            const State next = child(state, symbol);
            state = next >= 0 ? next : addChild(state, symbol);
        }
        endState.push_back(state);
        m_longest = std::max(m_longest, pattern.size());
    }
    groupPatternNumbers(endState);
    linkFailures(pause);
}

PatternAutomaton::State PatternAutomaton::addChild(State state, qint32 symbol)
{
    const auto added = State(m_nodes.size());
    Node node;
    node.symbol = symbol;
    if (state == root()) {
        m_rootChild[size_t(symbol)] = added;
    } else {
        node.nextSibling = m_nodes[size_t(state)].firstChild;
        m_nodes[size_t(state)].firstChild = added;
    }
    m_nodes.push_back(node);
    return added;
}

void PatternAutomaton::groupPatternNumbers(const std::vector<State>& endState)
{
    const size_t states = m_nodes.size();
    m_numbersBegin.assign(states + 1, 0);
    for (const State state : endState)
        ++m_numbersBegin[size_t(state) + 1];
    for (size_t s = 0; s < states; ++s)
        m_numbersBegin[s + 1] += m_numbersBegin[s];
    // Patterns are taken in their order, so each state's numbers come out ascending.
    std::vector<qint32> filled(m_numbersBegin.begin(), m_numbersBegin.end() - 1);
    m_numbers.resize(endState.size());
    for (size_t pattern = 0; pattern < endState.size(); ++pattern)
        m_numbers[size_t(filled[size_t(endState[pattern])]++)] = qint32(pattern);
}

void PatternAutomaton::linkFailures(const std::function<void()>& pause)
{
    // Breadth first, so that a state's failure, being shallower, is done before it.
    std::vector<State> order;
    order.reserve(m_nodes.size());
    for (const State c : m_rootChild) {
        if (c >= 0)
            order.push_back(c);
    }
    for (size_t at = 0; at < order.size(); ++at) {
        if (pause && at % PauseEvery == PauseEvery - 1)
            pause();
        const State state = order[at];
        Node& node = m_nodes[size_t(state)];
        const Node& fail = m_nodes[size_t(node.fail)];
        const qint32 ownBegin = m_numbersBegin[size_t(state)];
        const qint32 ownEnd = m_numbersBegin[size_t(state) + 1];
        node.output = ownEnd > ownBegin ? state : fail.output;
        node.highestOnChain = std::max(ownEnd > ownBegin ? m_numbers[size_t(ownEnd - 1)] : -1, fail.highestOnChain);

        for (State c = node.firstChild; c >= 0; c = m_nodes[size_t(c)].nextSibling) {
            const qint32 symbol = m_nodes[size_t(c)].symbol;
            State f = node.fail;
            State target = child(f, symbol);
            while (target < 0 && f != root()) {
                f = m_nodes[size_t(f)].fail;
                target = child(f, symbol);
            }
            m_nodes[size_t(c)].fail = target >= 0 ? target : root();
            order.push_back(c);
        }
    }
}

qint32 PatternAutomaton::firstPatternFrom(State state, qint32 from) const
{
    if (m_nodes[size_t(state)].highestOnChain < from)
        return -1;
    qint32 best = -1;
    for (State t = m_nodes[size_t(state)].output; t >= 0 && m_nodes[size_t(t)].highestOnChain >= from;
         t = m_nodes[size_t(m_nodes[size_t(t)].fail)].output) {
        const auto begin = m_numbers.begin() + m_numbersBegin[size_t(t)];
        const auto end = m_numbers.begin() + m_numbersBegin[size_t(t) + 1];
        const auto found = std::lower_bound(begin, end, from);
        if (found != end && (best < 0 || *found < best))
            best = *found;
    }
    return best;
}
