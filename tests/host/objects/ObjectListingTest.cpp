// Listings: the order of names, of few changes and of many.
#include "host/objects/ObjectListing.h"

#include "TestFiles.h"
#include "host/objects/NaturalOrder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <random>

namespace {

using hv::ObjectListing;

TEST(ObjectListing, keysOrderNamesLikeTheComparison)
{
    const QStringList parts{"a",
                            "A",
                            "b",
                            "Line ",
                            "0",
                            "00",
                            "1",
                            "9",
                            "10",
                            "010",
                            "-",
                            "~",
                            ".",
                            " ",
                            QString(QChar(0xe9)),
                            QString(QChar(0xc9)),
                            QString(QChar(0x4e2d))};
    std::mt19937 random(7); // NOLINT: the same in every run
    std::vector<QString> names;
    for (int i = 0; i < 400; ++i) {
        QString name;
        for (unsigned n = 1 + random() % 4; n > 0; --n)
            name += parts[static_cast<int>(random() % static_cast<unsigned>(parts.size()))];
        names.push_back(name);
    }
    for (const QString& a : names)
        for (const QString& b : names) {
            std::string keyA, keyB;
            hv::appendNaturalKey(a, keyA);
            hv::appendNaturalKey(b, keyB);
            if (keyA != keyB) {
                ASSERT_EQ(keyA < keyB, hv::naturalLess(a, b)) << a.toStdString() << " | " << b.toStdString();
            }
        }
}

TEST(ObjectListing, aHundredThousandObjectsInOrderAndFewAndManyChanges)
{
    const QTemporaryDir folder;
    const auto& info = objectKindInfo(ObjectKind::Horizon3d);
    const auto name = [](int number) { return QStringLiteral("Horizon %1").arg(number); };
    constexpr int count = 100000;
    for (int i = 0; i < count; ++i) {
        QFile file(folder.filePath(name(i * 7919 % count) + QStringLiteral(".horizon")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    ObjectListing listing = ObjectListing::read(folder.path(), info);
    ASSERT_EQ(listing.files().size(), std::size_t(count));
    for (int i = 0; i < count; ++i)
        ASSERT_EQ(listing.files()[static_cast<std::size_t>(i)].name, name(i));

    listing.remove(name(5));
    listing.put({name(5) + 'a', "horizon"});
    EXPECT_FALSE(listing.contains(name(5)));
    EXPECT_EQ(listing.files()[5].name, name(5) + 'a');
    EXPECT_EQ(listing.files()[6].name, name(6));
    for (int i = 0; i < 1000; ++i) {
        listing.remove(name(i * 3));
        listing.put({name(i * 3) + 'b', "horizon"});
    }
    EXPECT_TRUE(listing.contains(name(300) + 'b'));
    EXPECT_EQ(listing.files().size(), std::size_t(count));
    EXPECT_TRUE(std::is_sorted(listing.files().begin(), listing.files().end(),
                               [](const auto& a, const auto& b) { return hv::naturalLess(a.name, b.name); }));
    EXPECT_FALSE(listing.contains(name(300)));
    EXPECT_TRUE(listing.contains(name(301)));
}

} // namespace
