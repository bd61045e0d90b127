#include "forecast/patternautomaton.h"

#include <QChar>

#include <algorithm>
#include <type_traits>
#include <utility>

char32_t foldedUnit(char16_t unit, char16_t previous)
{
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? char32_t(unit + (u'a' - u'A')) : unit;
    if (QChar::isLowSurrogate(unit) && QChar::isHighSurrogate(previous))
        return QChar::toCaseFolded(QChar::surrogateToUcs4(previous, unit));
    return QChar::toCaseFolded(unit);
}

PatternAutomaton::PatternAutomaton(const PatternList& patterns, const Worked& worked)
    : m_worked(&worked), m_symbolOfUnit(0x10000, 0)
{
    Symbol symbols = 0;
    for (const char32_t unit : patterns.units) {
        step();
        Symbol& symbol = unit < 0x10000 ? m_symbolOfUnit[unit] : m_symbolOfPair[unit];
        if (symbol == 0)
            symbol = ++symbols;
    }
    m_rootChild.assign(size_t(symbols) + 1, -1);
    // At most one state for each unit; pages that stay unused cost nothing.
    m_nodes.reserve(patterns.units.size() + 1);
    m_nodes.emplace_back();

    std::vector<State> endState;
    endState.reserve(size_t(patterns.count()));
    for (qsizetype i = 0; i < patterns.count(); ++i) {
        const std::span<const char32_t> pattern = patterns.at(i);
        State state = root();
        for (const char32_t unit : pattern) {
            step();
            const Symbol symbol = symbolOf(unit);
            const State next = child(state, symbol);
            state = next >= 0 ? next : addChild(state, symbol);
        }
        endState.push_back(state);
    }
    groupPatternNumbers(endState);
    linkFailures();
    m_worked = nullptr;
}

void PatternAutomaton::release(const std::function<void()>& afterEach)
{
    const auto free = [&afterEach](auto& array) {
        std::remove_reference_t<decltype(array)>().swap(array);
        afterEach();
    };
    free(m_symbolOfUnit);
    free(m_rootChild);
    free(m_nodes);
    free(m_table);
    free(m_numbersBegin);
    free(m_numbers);
    m_symbolOfPair.clear();
}

PatternAutomaton::State PatternAutomaton::addChild(State state, Symbol symbol)
{
    const auto added = State(m_nodes.size());
    Node node;
    node.symbol = symbol;
    if (state == root()) {
        m_rootChild[size_t(symbol)] = added;
        m_nodes.push_back(node);
        return added;
    }
    Node& parent = m_nodes[size_t(state)];
    node.nextSibling = parent.firstChild;
    parent.firstChild = added;
    const qint32 children = ++parent.children;
    m_nodes.push_back(node); // (no move: room for every state was reserved)
    if (children == ListedChildren + 1) {
        // Too many to look through: all go into the table.
        for (State c = added; c >= 0; c = m_nodes[size_t(c)].nextSibling)
            putInTable(state, m_nodes[size_t(c)].symbol, c);
    } else if (children > ListedChildren) {
        putInTable(state, symbol, added);
    }
    return added;
}

void PatternAutomaton::putInTable(State parent, Symbol symbol, State child)
{
    if (2 * (m_inTable + 1) > m_table.size()) {
        // Twice as large, and all in again. (The new table is filled a part
        // at a time, counted as work: on a long list, even the first touch
        // of its memory takes its time.)
        const size_t size = std::max<size_t>(1024, 2 * m_table.size());
        std::vector<Child> old;
        old.reserve(size);
        for (size_t at = 0; at < size; at += 4096) {
            old.resize(std::min(size, at + 4096));
            step(4096);
        }
        old.swap(m_table);
        m_mask = m_table.size() - 1;
        m_inTable = 0;
        for (const Child& entry : old) {
            step();
            if (entry.child >= 0)
                putInTable(entry.parent, entry.symbol, entry.child);
        }
    }
    size_t at = slotOf(parent, symbol);
    while (m_table[at].child >= 0)
        at = (at + 1) & m_mask;
    m_table[at] = {parent, symbol, child};
    ++m_inTable;
}

void PatternAutomaton::groupPatternNumbers(const std::vector<State>& endState)
{
    // (Step by step: on a long list, even the first touch of the memory
    // takes its time.)
    const size_t states = m_nodes.size();
    m_numbersBegin.reserve(states + 1);
    for (size_t s = 0; s <= states; ++s) {
        step();
        m_numbersBegin.push_back(0);
    }
    for (const State state : endState)
        ++m_numbersBegin[size_t(state)];
    qint32 start = 0;
    for (size_t s = 0; s <= states; ++s) {
        step();
        start += std::exchange(m_numbersBegin[s], start);
    }
    // Patterns are taken in their order, so each state's numbers come out
    // ascending. Each state's begin moves on to the next state's as its
    // numbers are placed, and all move back by one after.
    m_numbers.resize(endState.size());
    for (size_t pattern = 0; pattern < endState.size(); ++pattern)
        m_numbers[size_t(m_numbersBegin[size_t(endState[pattern])]++)] = qint32(pattern);
    for (size_t s = states; s > 0; --s) {
        step();
        m_numbersBegin[s] = m_numbersBegin[s - 1];
    }
    m_numbersBegin[0] = 0;
}

void PatternAutomaton::linkFailures()
{
    // Breadth first, so that a state's failure, being shallower, is done before it.
    std::vector<State> order;
    order.reserve(m_nodes.size());
    for (const State c : m_rootChild) {
        if (c >= 0)
            order.push_back(c);
    }
    for (size_t at = 0; at < order.size(); ++at) {
        step();
        const State state = order[at];
        Node& node = m_nodes[size_t(state)];
        const Node& failure = m_nodes[size_t(node.fail)];
        const qint32 ownBegin = m_numbersBegin[size_t(state)];
        const qint32 ownEnd = m_numbersBegin[size_t(state) + 1];
        const bool ends = ownEnd > ownBegin;
        node.output = ends ? state : failure.output;
        node.highestOnChain = std::max(ends ? m_numbers[size_t(ownEnd - 1)] : -1, failure.highestOnChain);
        node.lowestOnChain = failure.lowestOnChain;
        if (ends && (node.lowestOnChain < 0 || m_numbers[size_t(ownBegin)] < node.lowestOnChain))
            node.lowestOnChain = m_numbers[size_t(ownBegin)];

        for (State c = node.firstChild; c >= 0; c = m_nodes[size_t(c)].nextSibling) {
            const Symbol symbol = m_nodes[size_t(c)].symbol;
            State f = node.fail;
            State target = child(f, symbol);
            while (target < 0 && f != root()) {
                step();
                f = m_nodes[size_t(f)].fail;
                target = child(f, symbol);
            }
            m_nodes[size_t(c)].fail = target >= 0 ? target : root();
            order.push_back(c);
        }
    }
}

PatternAutomaton::Memo::Memo(const PatternAutomaton& automaton, const Worked& worked)
{
    const size_t states = automaton.m_nodes.size();
    m_round.reserve(states);
    m_found.reserve(states);
    // (A part at a time: on a long list, even the first touch of the memory
    // takes its time.)
    for (size_t at = 0; at < states; at += 4096) {
        const size_t part = std::min<size_t>(4096, states - at);
        m_round.resize(at + part, 0);
        m_found.resize(at + part, None);
        if (worked)
            worked(qsizetype(part));
    }
}

qint32 PatternAutomaton::firstPatternFrom(State state, qint32 from, Memo& memo, qsizetype& steps) const
{
    if (from < memo.m_lastFrom)
        ++memo.m_currentRound; // the answers found were for a larger `from`
    memo.m_lastFrom = from;
    // Down the chain to the first state whose answer is known, or below
    // which no pattern of at least `from` ends...
    qint32 found = Memo::None;
    memo.m_toFind.clear();
    for (State t = m_nodes[size_t(state)].output; t >= 0;) {
        ++steps;
        const Node& node = m_nodes[size_t(t)];
        if (node.highestOnChain < from)
            break;
        if (node.lowestOnChain >= from) {
            found = node.lowestOnChain; // all further down will do: the lowest of them
            break;
        }
        if (memo.m_round[size_t(t)] == memo.m_currentRound && memo.m_found[size_t(t)] >= from) {
            found = memo.m_found[size_t(t)];
            break;
        }
        memo.m_toFind.push_back(t);
        t = m_nodes[size_t(node.fail)].output;
    }
    // ...and back up, each state's answer the lower of its own and the one below.
    for (auto t = memo.m_toFind.rbegin(); t != memo.m_toFind.rend(); ++t) {
        const auto begin = m_numbers.begin() + m_numbersBegin[size_t(*t)];
        const auto end = m_numbers.begin() + m_numbersBegin[size_t(*t) + 1];
        if (const auto own = std::lower_bound(begin, end, from); own != end)
            found = std::min(found, *own);
        memo.m_round[size_t(*t)] = memo.m_currentRound;
        memo.m_found[size_t(*t)] = found;
    }
    return found == Memo::None ? -1 : found;
}
