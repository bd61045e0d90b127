#include "platform/browseremulation.h"
#include "platform/memoryregistry.h"
#include "platform/modulereg.h"

#include <QtTest>

#include <limits>

namespace {

const QString emulationKey =
    QStringLiteral("SOFTWARE\\Microsoft\\Internet Explorer\\MAIN\\FeatureControl\\FEATURE_BROWSER_EMULATION");
constexpr int none = std::numeric_limits<int>::min();

} // namespace

class RegistryTest : public QObject {
    Q_OBJECT

private slots:
    void parsesKeyPaths_data();
    void parsesKeyPaths();
    void writesAndReadsThreeKindsOfResult();
    void browserEmulation_data();
    void browserEmulation();
};

void RegistryTest::parsesKeyPaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<RegHandle>("hive"); // HKEY_CURRENT_USER before the call
    QTest::addColumn<QString>("subkey");

    using namespace reghive;
    QTest::newRow("hive and subkey") << "HKEY_LOCAL_MACHINE\\SOFTWARE\\A" << HKEY_LOCAL_MACHINE << "SOFTWARE\\A";
    QTest::newRow("hive alone") << "HKEY_USERS" << HKEY_USERS << "";
    QTest::newRow("first name") << "HKEY_CLASSES_ROOT\\.txt" << HKEY_CLASSES_ROOT << ".txt";
    QTest::newRow("last name") << "HKEY_DYN_DATA\\A\\B" << HKEY_DYN_DATA << "A\\B";
    QTest::newRow("unknown hive") << "HKEY_NONSENSE\\A" << RegHandle(0) << "A";
    QTest::newRow("hive names count case") << "HKEY_users\\A" << RegHandle(0) << "A";
    QTest::newRow("lower case: refused") << "hkey_users\\A" << HKEY_CURRENT_USER << "hkey_users\\A";
    QTest::newRow("no hive: refused") << "SOFTWARE\\A" << HKEY_CURRENT_USER << "SOFTWARE\\A";
    QTest::newRow("final backslash: refused") << "HKEY_USERS\\A\\" << HKEY_CURRENT_USER << "HKEY_USERS\\A\\";
}

void RegistryTest::parsesKeyPaths()
{
    QFETCH(QString, path);
    QFETCH(RegHandle, hive);
    QFETCH(QString, subkey);
    MemoryRegistry memory;
    Module_REG registry(memory);
    RegHandle parsed = reghive::HKEY_CURRENT_USER;
    registry.RegParseKey(path, parsed);
    QCOMPARE(parsed, hive);
    QCOMPARE(path, subkey);
}

void RegistryTest::writesAndReadsThreeKindsOfResult()
{
    MemoryRegistry memory;
    Module_REG registry(memory);
    const auto read = [&](QString path, const char* name) { return registry.RegReadDword(path, name); };
    const auto value = [&](const char* subkey) { return memory.value(reghive::HKEY_CURRENT_USER, subkey, "v"); };
    QString path = QStringLiteral("HKEY_NONSENSE\\A");
    QVERIFY(!registry.RegWriteDword(path, QStringLiteral("v"), 1));
    QVERIFY(std::holds_alternative<std::monostate>(read("HKEY_NONSENSE\\A", "v")));
    QCOMPARE(read("HKEY_CURRENT_USER\\Software\\A", "v"), RegReadResult(QString())); // no key
    QCOMPARE(memory.openHandles(), 0);

    path = QStringLiteral("HKEY_CURRENT_USER\\Software\\A");
    QVERIFY(registry.RegWriteDword(path, QStringLiteral("V"), -7)); // creates the key
    QCOMPARE(path, QStringLiteral("Software\\A"));
    QCOMPARE(value("software\\a"), -7);
    QCOMPARE(memory.openHandles(), 0);
    QCOMPARE(read("HKEY_CURRENT_USER\\SOFTWARE\\a", "v"), RegReadResult(qint32(-7)));
    QCOMPARE(memory.openHandles(), 0);
    QCOMPARE(read("HKEY_CURRENT_USER\\Software\\A", "w"), RegReadResult(QString())); // no value
    QCOMPARE(memory.openHandles(), 1); // that read leaves its key open

    registry.RegDeleteValue(reghive::HKEY_CURRENT_USER, QStringLiteral("Software\\A"), QStringLiteral("v"));
    QCOMPARE(value("Software\\A"), std::nullopt);
    QCOMPARE(memory.openHandles(), 1);

    // A refused path writes to the hive of the call before.
    path = QStringLiteral("SOFTWARE\\B");
    QVERIFY(registry.RegWriteDword(path, QStringLiteral("v"), 2));
    QCOMPARE(value("SOFTWARE\\B"), 2);
}

void RegistryTest::browserEmulation_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<bool>("force");
    QTest::addColumn<int>("before"); // `none`: no value
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<int>("after");
    QTest::addColumn<int>("sets");

    QTest::newRow("missing, IE10 forced") << "IE10" << true << none << false << 10001 << 1;
    QTest::newRow("IE10 forced, already there: nothing written") << "IE10" << true << 10001 << false << 10001 << 0;
    QTest::newRow("IE10") << "IE10" << false << 10001 << false << 10000 << 1;
    QTest::newRow("ie9 forced over 9000") << "ie9" << true << 9000 << false << 9999 << 1;
    QTest::newRow("IE9") << "IE9" << false << none << false << 9000 << 1;
    QTest::newRow("IE8 forced") << "Ie8" << true << none << false << 8888 << 1;
    QTest::newRow("IE8 already there: nothing written") << "IE8" << false << 8000 << false << 8000 << 0;
    QTest::newRow("IE7 forced") << "IE7" << true << none << false << 7000 << 1;
    QTest::newRow("IE7") << "IE7" << false << none << false << 7000 << 1;
    QTest::newRow("IE6 deletes") << "IE6" << true << 9000 << false << none << 0;
    QTest::newRow("empty deletes") << "" << false << 10001 << false << none << 0;
    QTest::newRow("beyond 16 bits counts as 0") << "IE10" << true << 10001 + 65536 << false << 10001 << 1;
    QTest::newRow("no right to write") << "IE10" << true << none << true << none << 0;
}

void RegistryTest::browserEmulation()
{
    QFETCH(QString, version);
    QFETCH(bool, force);
    QFETCH(int, before);
    QFETCH(bool, readOnly);
    QFETCH(int, after);
    QFETCH(int, sets);
    MemoryRegistry memory;
    if (before != none)
        memory.setValue(reghive::HKEY_LOCAL_MACHINE, emulationKey, QStringLiteral("chengchuan.exe"), before);
    if (readOnly)
        memory.readOnlyHives.insert(reghive::HKEY_LOCAL_MACHINE);
    Module_REG registry(memory);

    SetBrowserEmulation(registry, version, force);

    QCOMPARE(memory.value(reghive::HKEY_LOCAL_MACHINE, emulationKey, QStringLiteral("chengchuan.exe")).value_or(none),
             after);
    QCOMPARE(memory.valuesSet, sets);
}

QTEST_GUILESS_MAIN(RegistryTest)

#include "tst_registry.moc"
