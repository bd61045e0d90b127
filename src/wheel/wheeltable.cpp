#include "wheel/wheeltable.h"

#include <QFile>
#include <QList>

#include <bit>

namespace wheel {

namespace {

constexpr int BlocksPerLine = 12;

QByteArray blockText(Block block)
{
    QByteArray text;
    while (block) {
        text += char('a' + std::countr_zero(block));
        block &= block - 1;
    }
    return text;
}

std::optional<Block> blockOf(QByteArrayView text, int points)
{
    if (text.size() != TicketReds)
        return std::nullopt;
    Block block = 0;
    int previous = -1;
    for (char letter : text) {
        const int point = letter - 'a';
        if (point <= previous || point >= points)
            return std::nullopt;
        block |= Block(1) << point;
        previous = point;
    }
    return block;
}

std::optional<int> numberOf(QByteArrayView text)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    return ok ? std::optional<int>(value) : std::nullopt;
}

} // namespace

QByteArray formatTable(const std::vector<Design>& designs, const QByteArray& heading)
{
    QByteArray text = heading;
    for (const Design& design : designs) {
        text += QByteArray("wheel ") + QByteArray::number(design.points) + ' ' +
                QByteArray::number(design.guarantee.drawn) + ' ' + QByteArray::number(design.guarantee.held) + ' ' +
                QByteArray::number(qsizetype(design.blocks.size())) + '\n';
        for (std::size_t i = 0; i < design.blocks.size(); ++i) {
            text += blockText(design.blocks[i]);
            text += (i + 1) % BlocksPerLine == 0 || i + 1 == design.blocks.size() ? '\n' : ' ';
        }
    }
    return text;
}

std::vector<Design> parseTable(const QByteArray& text)
{
    std::vector<Design> designs;
    std::optional<Design> current;
    int expected = 0;
    bool broken = false;
    const auto finish = [&] {
        if (current && !broken && int(current->blocks.size()) == expected)
            designs.push_back(std::move(*current));
        current.reset();
    };
    for (const QByteArray& rawLine : text.split('\n')) {
        const QByteArray line = rawLine.simplified();
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        const QList<QByteArray> words = line.split(' ');
        if (words.first() == "wheel") {
            finish();
            broken = true;
            if (words.size() != 5)
                continue;
            const auto points = numberOf(words[1]);
            const auto drawn = numberOf(words[2]);
            const auto held = numberOf(words[3]);
            const auto count = numberOf(words[4]);
            if (!points || !drawn || !held || !count || *points < 1 || *points > 26 || *count < 0)
                continue;
            current = Design{*points, {*drawn, *held}, {}};
            current->blocks.reserve(std::size_t(*count));
            expected = *count;
            broken = false;
            continue;
        }
        if (!current || broken)
            continue;
        for (const QByteArray& word : words) {
            if (word.isEmpty())
                continue;
            const auto block = blockOf(word, current->points);
            if (!block) {
                broken = true;
                break;
            }
            current->blocks.push_back(*block);
        }
    }
    finish();
    return designs;
}

const std::vector<Design>& shippedDesigns()
{
    static const std::vector<Design> designs = [] {
        QFile file(QStringLiteral(":/wheel/wheels.txt"));
        if (!file.open(QIODevice::ReadOnly))
            return std::vector<Design>{};
        return parseTable(file.readAll());
    }();
    return designs;
}

std::optional<Design> shippedDesign(int points, Guarantee guarantee)
{
    for (const Design& design : shippedDesigns()) {
        if (design.points == points && design.guarantee == guarantee)
            return design;
    }
    return std::nullopt;
}

} // namespace wheel
