// wheelsearch: looks for smaller wheels and keeps the table the program ships
// (src/wheel/wheels.txt) up to date. For every number of points from 7 to 20
// and every guarantee it starts from the best design it has (the table's
// own, one derived from a neighbouring case, a construction or a greedy
// one), then takes out a block and anneals until every drawn set is served
// again, over and over, for the seconds it is given. A design enters the
// table only when it is smaller and the program's exhaustive check passes it.
//
//   wheelsearch --table src/wheel/wheels.txt [--seconds 20] [--only 20:5:5,13:4:4]
//               [--seed 1] [--beyond] [--hot 1.2] [--cold 0.08]
//               [--rotation L:f | --affine p:m [--reps R]] [--report]
//
// --seconds is the time for each case (0: only derive and greedy), --only
// picks cases as v:m:t, --report prints the sizes against the goals and
// searches nothing. A covering search stops at the best known size, a lotto
// design with a goal at its goal unless --beyond is given. --hot and --cold
// are the temperatures at the start and the end of each try; going on from
// the table's design, a low start (0.3) keeps the search near it. --rotation
// searches wheels that a rotation leaves as they are: the first points in
// cycles of L, the last f fixed, from R representatives at random (or as
// many as the table's design needs) down; from the table's design itself,
// less one orbit, when the rotation leaves it as it is. --affine does the
// same with the maps x -> ax + b modulo the prime p on the first p points,
// a in the subgroup of order m of the units, the other points fixed.

#include "anneal.h"
#include "orbits.h"

#include "wheel/quickwheel.h"
#include "wheel/wheeldesign.h"
#include "wheel/wheeltable.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QSaveFile>
#include <QStringList>

#include <algorithm>
#include <bit>
#include <cstdio>
#include <map>
#include <optional>
#include <set>

namespace {

using wheel::Block;
using wheel::Design;
using wheel::Guarantee;

using Key = std::tuple<int, int, int>; // points, drawn, held

Key keyOf(int points, Guarantee guarantee)
{
    return {points, guarantee.drawn, guarantee.held};
}

// The best known sizes of the covering designs C(v,6,t), the goals for
// "中t保t": equal for v up to 10, at most 5% above from 11 on.
const std::map<int, std::array<int, 3>> coveringRecords = {
    {7, {4, 5, 6}},       {8, {4, 7, 12}},      {9, {7, 12, 30}},       {10, {10, 20, 50}},
    {11, {11, 32, 100}},  {12, {15, 41, 132}},  {13, {21, 66, 245}},    {14, {25, 80, 371}},
    {15, {31, 117, 578}}, {16, {38, 152, 808}}, {17, {44, 188, 1213}},  {18, {48, 236, 1546}},
    {19, {60, 325, 2175}}, {20, {71, 382, 2850}},
};

// Goals of the lotto designs where there are some.
const std::map<Key, int> lottoGoals = {
    {{10, 6, 5}, 14}, {{10, 5, 4}, 7}, {{10, 6, 4}, 3}, {{11, 6, 5}, 24}, {{11, 5, 4}, 10},
    {{11, 6, 4}, 5},  {{12, 6, 5}, 39}, {{12, 5, 4}, 14}, {{12, 6, 4}, 6},
};

std::optional<int> record(int points, Guarantee guarantee)
{
    if (guarantee.drawn != guarantee.held || guarantee.held < 3)
        return std::nullopt;
    return coveringRecords.at(points)[std::size_t(guarantee.held - 3)];
}

// The most a design may have: the goal of the table.
std::optional<int> goal(int points, Guarantee guarantee)
{
    if (const auto best = record(points, guarantee))
        return points <= 10 ? *best : *best * 105 / 100;
    const auto lotto = lottoGoals.find(keyOf(points, guarantee));
    if (lotto != lottoGoals.end())
        return lotto->second;
    // Otherwise no more than the covering of the same t.
    return coveringRecords.at(points)[std::size_t(guarantee.held - 3)];
}

class Table {
public:
    void load(const QString& path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return;
        for (Design& design : wheel::parseTable(file.readAll()))
            offer(std::move(design), "table");
    }

    // Several searches may run at once on one table: the file is locked,
    // and what the others have found meanwhile is taken in before it is
    // written.
    bool save(const QString& path)
    {
        QLockFile lock(path + QStringLiteral(".lock"));
        if (!lock.lock())
            return false;
        load(path);
        std::vector<Design> designs;
        for (const Guarantee& guarantee : wheel::guarantees()) {
            for (int points = wheel::FewestPoints; points <= wheel::MostPoints; ++points) {
                const auto found = m_designs.find(keyOf(points, guarantee));
                if (found != m_designs.end())
                    designs.push_back(found->second);
            }
        }
        const QByteArray heading =
            "# Wheels of the program, found by tools/wheelsearch (see its README line in README.md).\n"
            "# Each design: \"wheel v m t count\", then its blocks; letter a is point 1, b point 2 and\n"
            "# so on, and the points stand for the chosen reds in ascending order. Every design here\n"
            "# has passed the exhaustive check: for every m of the v points some block holds t.\n";
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            return false;
        file.write(wheel::formatTable(designs, heading));
        return file.commit();
    }

    const Design* find(int points, Guarantee guarantee) const
    {
        const auto found = m_designs.find(keyOf(points, guarantee));
        return found == m_designs.end() ? nullptr : &found->second;
    }

    // Keeps the design if it has the guarantee and is smaller than the one held.
    bool offer(Design design, const char* source)
    {
        if (design.points < wheel::FewestPoints || design.points > wheel::MostPoints)
            return false;
        const Design* held = find(design.points, design.guarantee);
        if (held && held->blocks.size() <= design.blocks.size())
            return false;
        std::sort(design.blocks.begin(), design.blocks.end());
        if (!wheel::guaranteeHolds(design)) {
            std::fprintf(stderr, "  %s: a design for v=%d %s fails the check, left out\n", source, design.points,
                         qPrintable(wheel::guaranteeName(design.guarantee)));
            return false;
        }
        if (held) {
            std::fprintf(stderr, "  v=%d %s: %zu -> %zu (%s)\n", design.points,
                         qPrintable(wheel::guaranteeName(design.guarantee)), held->blocks.size(),
                         design.blocks.size(), source);
        }
        m_designs[keyOf(design.points, design.guarantee)] = std::move(design);
        return true;
    }

    // A design serves every weaker guarantee, and a design on one point more
    // serves one point fewer: repeats both until nothing gets smaller.
    void derive()
    {
        bool changed = true;
        while (changed) {
            changed = false;
            for (int points = wheel::MostPoints; points >= wheel::FewestPoints; --points) {
                for (const Guarantee& wanted : wheel::guarantees()) {
                    for (const Guarantee& given : wheel::guarantees()) {
                        if (given == wanted || !wheel::serves(given, wanted))
                            continue;
                        if (const Design* design = find(points, given)) {
                            Design copy = *design;
                            copy.guarantee = wanted;
                            changed = offer(std::move(copy), "weaker guarantee") || changed;
                        }
                    }
                    if (points < wheel::MostPoints) {
                        if (const Design* larger = find(points + 1, wanted))
                            changed = offer(wheel::withoutLastPoint(*larger), "one point fewer") || changed;
                    }
                }
            }
        }
    }

    void report() const
    {
        std::printf("%-4s", "v");
        for (const Guarantee& guarantee : wheel::guarantees())
            std::printf(" %14s", qPrintable(wheel::guaranteeName(guarantee)));
        std::printf("\n");
        int missed = 0;
        for (int points = wheel::FewestPoints; points <= wheel::MostPoints; ++points) {
            std::printf("%-4d", points);
            for (const Guarantee& guarantee : wheel::guarantees()) {
                const Design* design = find(points, guarantee);
                const auto most = goal(points, guarantee);
                const int size = design ? int(design->blocks.size()) : -1;
                const bool over = !design || (most && size > *most);
                missed += over;
                char cell[32];
                std::snprintf(cell, sizeof cell, "%d/%d%s", size, most.value_or(0), over ? "!" : "");
                std::printf(" %12s", cell);
            }
            std::printf("\n");
        }
        std::printf("size/goal, ! above the goal: %d cases\n", missed);
    }

private:
    std::map<Key, Design> m_designs;
};

// The 6-sets whose points add up to `residue` modulo v: every set of five
// points but those few whose missing point would repeat one of them lies in
// exactly one.
std::vector<Block> sumBlocks(int points, int residue)
{
    std::vector<Block> blocks;
    std::uint64_t set = (1u << wheel::TicketReds) - 1;
    while (set < (std::uint64_t(1) << points)) {
        int sum = 0;
        for (std::uint64_t rest = set; rest; rest &= rest - 1)
            sum += std::countr_zero(rest);
        if (sum % points == residue)
            blocks.push_back(Block(set));
        const std::uint64_t lowest = set & (~set + 1);
        const std::uint64_t ripple = set + lowest;
        set = (((ripple ^ set) >> 2) / lowest) | ripple;
    }
    return blocks;
}

Design startingDesign(const Table& table, int points, Guarantee guarantee, std::uint64_t seed)
{
    std::optional<Design> best;
    const auto consider = [&](Design design) {
        if (!best || design.blocks.size() < best->blocks.size())
            best = std::move(design);
    };
    if (const Design* held = table.find(points, guarantee))
        consider(*held);
    for (std::uint64_t round = 0; round < 3; ++round)
        consider(wheel::greedyDesign(points, guarantee, seed + round));
    if (guarantee.drawn == guarantee.held && guarantee.held >= 4) {
        for (int residue = 0; residue < points; ++residue)
            consider(wheel::greedyDesign(points, guarantee, seed, sumBlocks(points, residue)));
    }
    return *best;
}

// The temperatures of one try: hot at its start, cold at its end.
double hot = 1.2;
double cold = 0.08;
// Weighted local search instead of annealing, and how many steps a changed
// block is left alone.
bool weighted = false;
int tenure = 10;

void search(Table& table, const QString& path, int points, Guarantee guarantee, double seconds, std::uint64_t seed,
            bool beyond)
{
    const Design start = startingDesign(table, points, guarantee, seed);
    table.offer(start, "start");
    const auto best = record(points, guarantee);
    // Below the best known covering there is nothing to find; a lotto design
    // goes on to its goal, or as far as the time allows with --beyond.
    std::optional<int> stop = best;
    if (!stop && !beyond && lottoGoals.count(keyOf(points, guarantee)))
        stop = goal(points, guarantee);
    std::fprintf(stderr, "v=%d %s: start %zu, goal %d%s\n", points, qPrintable(wheel::guaranteeName(guarantee)),
                 start.blocks.size(), goal(points, guarantee).value_or(0),
                 best ? qPrintable(QStringLiteral(", best known %1").arg(*best)) : "");
    if (seconds <= 0)
        return;
    QElapsedTimer clock;
    clock.start();
    const auto left = [&] { return seconds - double(clock.elapsed()) / 1000.0; };
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(qint64(seconds * 1000));
    wheelsearch::Annealer annealer(points, guarantee, start.blocks, seed);
    std::int64_t moves = 20000;
    const std::int64_t mostMoves = 200'000'000;
    while (left() > 0 && (!stop || int(annealer.blocks().size()) > *stop)) {
        annealer.dropWeakest();
        bool served = false;
        while (!served && left() > 0) {
            served = weighted ? annealer.weightedSearch(moves / 100, tenure) : annealer.anneal(moves, hot, cold, deadline);
            if (qEnvironmentVariableIsSet("WHEELSEARCH_TRACE"))
                std::fprintf(stderr, "    try of %lld: %d unserved\n", static_cast<long long>(moves), annealer.unserved());
            if (!served)
                moves = std::min(moves * 2, mostMoves);
        }
        if (!served)
            break;
        Design found{points, guarantee, annealer.blocks()};
        if (table.offer(std::move(found), "annealed"))
            table.save(path); // kept at once: a long search may be stopped at any time
        std::fprintf(stderr, "  %zu blocks after %.1f s (%lld moves a try)\n", annealer.blocks().size(),
                     double(clock.elapsed()) / 1000.0, static_cast<long long>(moves));
    }
}

// The same with a group of permutations imposed (a rotation, or the maps
// x -> ax + b): the wheel is the images of a few representatives, and every
// step takes out a whole orbit.
void searchSymmetric(Table& table, const QString& path, int points, Guarantee guarantee, double seconds,
                     std::uint64_t seed, const wheelsearch::Group& group, int representatives)
{
    const Design* held = table.find(points, guarantee);
    const int order = int(group.size());
    if (representatives <= 0)
        representatives = held ? int(held->blocks.size()) / order : 1;
    std::fprintf(stderr, "v=%d %s: a group of %d, from %d representatives (%d blocks)\n", points,
                 qPrintable(wheel::guaranteeName(guarantee)), order, representatives, representatives * order);
    QElapsedTimer clock;
    clock.start();
    const auto left = [&] { return seconds - double(clock.elapsed()) / 1000.0; };
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(qint64(seconds * 1000));
    wheelsearch::OrbitAnnealer annealer(points, guarantee, group, seed);
    // A table design that the group leaves as it is is the start, less its
    // weakest orbit; otherwise representatives at random.
    if (held && annealer.startFrom(held->blocks)) {
        std::fprintf(stderr, "  from the table's design\n");
        annealer.dropWeakest();
    } else {
        annealer.randomStart(representatives);
    }
    std::int64_t moves = 20000;
    const std::int64_t mostMoves = 200'000'000;
    while (left() > 0 && annealer.representatives() > 0) {
        bool served = false;
        while (!served && left() > 0) {
            served = annealer.anneal(moves, hot, cold, deadline);
            if (served)
                break;
            if (qEnvironmentVariableIsSet("WHEELSEARCH_TRACE"))
                std::fprintf(stderr, "    try of %lld: %d orbits unserved\n", static_cast<long long>(moves),
                             annealer.unserved());
            moves = std::min(moves * 2, mostMoves);
        }
        if (!served)
            break;
        Design found{points, guarantee, annealer.design()};
        const int size = int(found.blocks.size());
        std::fprintf(stderr, "  %d representatives, %d blocks after %.1f s (%lld moves a try)\n",
                     annealer.representatives(), size, double(clock.elapsed()) / 1000.0,
                     static_cast<long long>(moves));
        if (table.offer(std::move(found), "symmetric"))
            table.save(path);
        const auto best = record(points, guarantee);
        if (best && size <= *best)
            break;
        annealer.dropWeakest();
    }
}

std::vector<std::tuple<int, Guarantee>> casesOf(const QString& only)
{
    std::vector<std::tuple<int, Guarantee>> cases;
    if (only.isEmpty()) {
        for (int points = wheel::FewestPoints; points <= wheel::MostPoints; ++points)
            for (const Guarantee& guarantee : wheel::guarantees())
                cases.emplace_back(points, guarantee);
        return cases;
    }
    for (const QString& item : only.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QStringList parts = item.split(QLatin1Char(':'));
        if (parts.size() != 3)
            continue;
        const Guarantee guarantee{parts[1].toInt(), parts[2].toInt()};
        if (std::find(wheel::guarantees().begin(), wheel::guarantees().end(), guarantee) ==
            wheel::guarantees().end())
            continue;
        cases.emplace_back(parts[0].toInt(), guarantee);
    }
    return cases;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const auto option = [&](const QString& name, const QString& fallback = {}) {
        const qsizetype at = arguments.indexOf(name);
        return at >= 0 && at + 1 < arguments.size() ? arguments[at + 1] : fallback;
    };
    const QString path = option(QStringLiteral("--table"));
    if (path.isEmpty()) {
        std::fprintf(stderr, "usage: wheelsearch --table FILE [--seconds S] [--only v:m:t,...] [--seed N] [--report]\n");
        return 2;
    }
    Table table;
    table.load(path);
    if (arguments.contains(QStringLiteral("--report"))) {
        table.report();
        return 0;
    }
    const double seconds = option(QStringLiteral("--seconds"), QStringLiteral("20")).toDouble();
    const std::uint64_t seed = option(QStringLiteral("--seed"), QStringLiteral("1")).toULongLong();
    const bool beyond = arguments.contains(QStringLiteral("--beyond"));
    hot = option(QStringLiteral("--hot"), QString::number(hot)).toDouble();
    cold = option(QStringLiteral("--cold"), QString::number(cold)).toDouble();
    weighted = arguments.contains(QStringLiteral("--weighted"));
    tenure = option(QStringLiteral("--tenure"), QString::number(tenure)).toInt();
    const QStringList turning = option(QStringLiteral("--rotation")).split(QLatin1Char(':'));
    wheelsearch::Rotation rotation;
    if (turning.size() == 2)
        rotation = {turning[0].toInt(), turning[1].toInt()};
    const int representatives = option(QStringLiteral("--reps"), QStringLiteral("0")).toInt();
    const QStringList affine = option(QStringLiteral("--affine")).split(QLatin1Char(':'));
    table.derive();
    for (const auto& [points, guarantee] : casesOf(option(QStringLiteral("--only")))) {
        if (points < wheel::FewestPoints || points > wheel::MostPoints)
            continue;
        if (rotation.cycle > 1 || affine.size() == 2) {
            const wheelsearch::Group group =
                affine.size() == 2 ? wheelsearch::affineGroup(points, affine[0].toInt(), affine[1].toInt())
                                   : wheelsearch::rotationGroup(points, rotation);
            if (group.size() < 2) {
                std::fprintf(stderr, "v=%d: no such group\n", points);
                continue;
            }
            searchSymmetric(table, path, points, guarantee, seconds, seed, group, representatives);
        } else
            search(table, path, points, guarantee, seconds, seed, beyond);
        table.derive();
        if (!table.save(path)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    table.report();
    return 0;
}
