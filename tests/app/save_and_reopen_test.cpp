// SPDX-License-Identifier: MIT
#include "app/file_commands.h"

#include "app/shell_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace tarvelint::test {
namespace {

using testing::IsEmpty;

/// Random readings with gaps, as a logger's three decimals give them.
DataSet randomRecord(unsigned seed)
{
    std::mt19937 random(seed);
    DataSet data;
    const auto columns = static_cast<std::int16_t>(1 + random() % 6);
    data.allocate(columns, static_cast<std::int32_t>(1 + random() % 40));
    for (int c = 1; c <= columns; ++c) data.labels.push_back("label" + std::to_string(c * 7));
    for (int layer = 1; layer <= kLayers; ++layer)
        for (std::int32_t r = 0; r < data.lines; ++r)
            for (std::int32_t c = 0; c < columns; ++c)
                data.values(layer, c, r) =
                    random() % 5 == 0 ? data.blank : (static_cast<double>(random()) - 2147483648.0) / 1000;
    return data;
}

void expectSameCells(const DataSet& saved, const DataSet& reopened)
{
    ASSERT_EQ(reopened.columns, saved.columns);
    ASSERT_EQ(reopened.lines, saved.lines);
    for (int layer = 1; layer <= kLayers; ++layer)
        for (std::int32_t r = 0; r < saved.lines; ++r)
            for (std::int32_t c = 0; c < saved.columns; ++c)
                ASSERT_EQ(reopened.values(layer, c, r), saved.values(layer, c, r)) << layer << ' ' << c << ' ' << r;
}

TEST(SaveAndReopen, givesTheSameDataSetInEveryDelimiterWithAndWithoutLabels)
{
    unsigned seed = 0;
    for (const FileType type : {FileType::space, FileType::tab, FileType::comma})
        for (const bool labels : {true, false})
            for (int repeat = 0; repeat < 10; ++repeat) {
                SCOPED_TRACE("seed " + std::to_string(++seed));
                Shell shell;
                const DataSet saved = randomRecord(seed);
                static_cast<DataSet&>(shell.window.record) = randomRecord(seed);
                shell.window.record.savesLabels = labels;
                shell.saveAs("/data/trip", type);
                shell.open(shell.window.file.savePath, type);
                EXPECT_THAT(shell.fakeUi.messages, IsEmpty());
                expectSameCells(saved, shell.window.record);
                for (std::size_t c = 0; c < saved.labels.size(); ++c)
                    EXPECT_EQ(shell.window.record.labels[c], labels ? saved.labels[c] : std::to_string(c + 1));
            }
}

} // namespace
} // namespace tarvelint::test
