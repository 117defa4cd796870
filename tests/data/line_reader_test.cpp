// SPDX-License-Identifier: MIT
#include "data/line_reader.h"

#include "data/file_format.h"
#include "record_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

/// Bytes on the heap through operator new, and their peak since it was last set.
std::size_t liveBytes = 0;
std::size_t peakBytes = 0;

} // namespace

void* operator new(std::size_t size)
{
    void* const block = std::malloc(size > 0 ? size : 1);
    if (block == nullptr) throw std::bad_alloc();
    liveBytes += malloc_usable_size(block);
    peakBytes = std::max(peakBytes, liveBytes);
    return block;
}

void operator delete(void* block) noexcept
{
    liveBytes -= malloc_usable_size(block);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}

namespace tarvelint::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::size_t kChunk = std::size_t{256} << 10U;

std::vector<std::string> linesOf(const std::string& text)
{
    std::istringstream stream(text);
    LineReader reader(stream, "record.csv");
    std::vector<std::string> lines;
    while (const auto line = reader.next()) lines.emplace_back(*line);
    return lines;
}

std::string refusalOfLines(std::istream& stream)
{
    try {
        LineReader reader(stream, "record.csv");
        static_cast<void>(reader.countLines());
    } catch (const FormatFault& fault) {
        return fault.title() + '|' + fault.what();
    }
    return "";
}

std::string refusalOfLines(const std::string& text)
{
    std::istringstream stream(text);
    return refusalOfLines(stream);
}

// ---- what ends a line

TEST(LineReader, lfEndsALine)
{
    EXPECT_THAT(linesOf("a\nb\n"), ElementsAre("a", "b"));
}

TEST(LineReader, crLfEndsALine)
{
    EXPECT_THAT(linesOf("a\r\nb\r\n"), ElementsAre("a", "b"));
}

TEST(LineReader, lfAndCrLfMayBeMixed)
{
    EXPECT_THAT(linesOf("a\nb\r\nc\n"), ElementsAre("a", "b", "c"));
}

TEST(LineReader, aLoneCrEndsALineWhenThereIsNoLf)
{
    EXPECT_THAT(linesOf("a\rb\r\rc"), ElementsAre("a", "b", "", "c"));
}

TEST(LineReader, aLoneCrIsTextWhenThereIsAnLf)
{
    EXPECT_THAT(linesOf("a\rb\nc\n"), ElementsAre("a\rb", "c"));
}

TEST(LineReader, anLfBehindTheFirstChunkStillMakesALoneCrText)
{
    const std::string text = "a\r" + std::string(kChunk, 'x');
    EXPECT_THAT(linesOf(text + "\nb"), ElementsAre(text, "b"));
}

TEST(LineReader, aLastLineWithoutAnEndCounts)
{
    EXPECT_THAT(linesOf("a\nb"), ElementsAre("a", "b"));
    EXPECT_THAT(linesOf("a"), ElementsAre("a"));
}

TEST(LineReader, anEndAtTheVeryEndMakesNoFurtherLine)
{
    EXPECT_THAT(linesOf("a\n\n"), ElementsAre("a", ""));
    EXPECT_THAT(linesOf("a\r"), ElementsAre("a"));
}

TEST(LineReader, aCrWhoseLfWasCutOffIsNoText)
{
    EXPECT_THAT(linesOf("a\r\nb\r"), ElementsAre("a", "b"));
}

// ---- where the record begins

TEST(LineReader, aByteOrderMarkIsSkipped)
{
    EXPECT_THAT(linesOf("\xEF\xBB\xBF"
                        "a\nb"),
                ElementsAre("a", "b"));
    EXPECT_THAT(linesOf("\xEF\xBB\xBF\r\n\r\na"), ElementsAre("a"));
}

TEST(LineReader, aByteOrderMarkElsewhereIsText)
{
    EXPECT_THAT(linesOf("a\n\xEF\xBB\xBF"), ElementsAre("a", "\xEF\xBB\xBF"));
}

TEST(LineReader, leadingEmptyLinesAreNotPartOfTheRecord)
{
    std::istringstream stream("\r\n\n\r\na\r\n\r\nb");
    LineReader reader(stream, "record.csv");
    EXPECT_EQ(reader.leadingEmptyLines(), 3);
    EXPECT_EQ(reader.linesRead(), 0);
    EXPECT_EQ(reader.next(), "a");
    EXPECT_EQ(reader.next(), "");
    EXPECT_EQ(reader.next(), "b");
    EXPECT_EQ(reader.next(), std::nullopt);
    EXPECT_EQ(reader.linesRead(), 3);
}

TEST(LineReader, aLineOfBlanksIsNotEmpty)
{
    EXPECT_THAT(linesOf("\n  \na"), ElementsAre("  ", "a"));
}

TEST(LineReader, tenThousandLeadingEmptyLinesAreTheMost)
{
    EXPECT_THAT(linesOf(std::string(10000, '\n') + "a"), ElementsAre("a"));
    EXPECT_EQ(refusalOfLines(std::string(10001, '\n') + "a"), "Error reading file:|This file seems to be corrupt!");
}

TEST(LineReader, aStreamWithoutANonEmptyLineIsCorrupt)
{
    for (const std::string text : {"", "\n", "\r\n\r\n", "\r\r", "\xEF\xBB\xBF"})
        EXPECT_EQ(refusalOfLines(text), "Error reading file:|This file seems to be corrupt!");
}

// ---- moving about

TEST(LineReader, seeksForwardsFromWhereItStands)
{
    std::istringstream stream("0\n1\n2\n3\n");
    LineReader reader(stream, "record.csv");
    EXPECT_TRUE(reader.seekLine(2));
    EXPECT_EQ(reader.next(), "2");
    EXPECT_TRUE(reader.seekLine(3));
    EXPECT_EQ(reader.next(), "3");
}

TEST(LineReader, seeksBackFromTheTopOfTheRecord)
{
    std::istringstream stream("\xEF\xBB\xBF\n\n0\n1\n2");
    LineReader reader(stream, "record.csv");
    EXPECT_EQ(reader.countLines(), 3);
    EXPECT_TRUE(reader.seekLine(0));
    EXPECT_EQ(reader.next(), "0");
    EXPECT_TRUE(reader.seekLine(2));
    EXPECT_TRUE(reader.seekLine(1));
    EXPECT_EQ(reader.next(), "1");
}

TEST(LineReader, doesNotRereadWhatLiesBeforeALineAhead)
{
    MadeUpStream stream("line\n", 5 * 1000 * 1000);
    LineReader reader(stream, "record.csv");
    ASSERT_TRUE(reader.seekLine(900000));
    const std::int64_t before = stream.bytesRead;
    EXPECT_TRUE(reader.seekLine(999999));
    EXPECT_LE(stream.bytesRead - before, 500 * 1000); // the last 100,000 lines of five bytes
}

TEST(LineReader, saysWhenTheStreamEndsBeforeALine)
{
    std::istringstream stream("0\n1\n");
    LineReader reader(stream, "record.csv");
    EXPECT_TRUE(reader.seekLine(1));
    EXPECT_FALSE(reader.seekLine(2));
    EXPECT_EQ(reader.next(), std::nullopt);
    EXPECT_FALSE(reader.seekLine(7));
}

TEST(LineReader, countsAcrossManyChunks)
{
    MadeUpStream stream("0.5123,99.25\r\n", 14 * 200000);
    LineReader reader(stream, "record.csv");
    EXPECT_EQ(reader.bytes(), 2800000);
    EXPECT_EQ(reader.countLines(), 200000);
}

// ---- chunks and long lines

TEST(LineReader, lineEndsMayStraddleTheChunks)
{
    for (std::size_t length = kChunk - 3; length <= kChunk + 1; ++length) {
        const std::string longLine(length, 'x');
        EXPECT_THAT(linesOf(longLine + "\r\nb\r\n"), ElementsAre(longLine, "b")) << length;
    }
}

TEST(LineReader, theLongestLineIsReadAndALongerOneNamesFileAndLine)
{
    const std::string longest(LineReader::kMaxLine, '7');
    EXPECT_EQ(linesOf("a\n" + longest + "\nb").at(1).size(), LineReader::kMaxLine);
    EXPECT_THAT(refusalOfLines("\n\na\n" + longest + "7\nb"),
                HasSubstr("|\"record.csv\" cannot be read: line 4 is longer than 4 MB."));
}

TEST(LineReader, twoHundredMegabytesWithoutALineEndAreRefusedInLittleMemory)
{
    MadeUpStream stream("123456,", 200 * 1000 * 1000);
    peakBytes = liveBytes;
    const std::size_t before = liveBytes;
    EXPECT_THAT(refusalOfLines(stream), HasSubstr("line 1 is longer"));
    EXPECT_LT(peakBytes - before, 16U << 20U);
}

TEST(LineReader, keepsLittleOfALongStream)
{
    MadeUpStream stream(std::string(3000000, '1') + '\n', 60 * 1000 * 1000);
    peakBytes = liveBytes;
    const std::size_t before = liveBytes;
    LineReader reader(stream, "record.csv");
    EXPECT_EQ(reader.countLines(), 20); // 60,000,000 / 3,000,001, the last one cut
    EXPECT_LT(peakBytes - before, 16U << 20U);
}

// ---- files that are no text, and failures

TEST(LineReader, aNulByteNamesFileAndLine)
{
    using namespace std::string_literals;
    EXPECT_THAT(refusalOfLines("\n1,2\n3,\0,4\n"s),
                HasSubstr("|\"record.csv\" is not a text file: line 3 holds a NUL byte."));
}

TEST(LineReader, aNulByteFarBeforeTheEndOfItsLineIsSeen)
{
    // The rest of the line comes in further chunks, without a NUL.
    EXPECT_THAT(refusalOfLines(std::string("a\0", 2) + std::string(2 * kChunk, 'x') + "\nb\n"),
                HasSubstr("line 1 holds a NUL byte"));
}

TEST(LineReader, utf16IsNoTextFile)
{
    using namespace std::string_literals;
    EXPECT_THAT(refusalOfLines("\xFF\xFE"
                               "1\0,\0002\0\n\0"s),
                HasSubstr("is not a text file: line 1"));
}

TEST(LineReader, linesBeforeANulByteAreRead)
{
    std::istringstream stream(std::string("a\nb\0", 4));
    LineReader reader(stream, "record.csv");
    EXPECT_EQ(reader.next(), "a");
    EXPECT_THROW(static_cast<void>(reader.next()), FormatFault);
}

TEST(LineReader, aLongBinaryFileIsCalledBinaryRatherThanLong)
{
    MadeUpStream stream(std::string(1000, 'x') + '\0', 9 * 1000 * 1000);
    EXPECT_THAT(refusalOfLines(stream), HasSubstr("is not a text file"));
}

/// A disk that fails behind its first bytes, as the standard file buffer reports it.
class FailingDisk : public std::stringbuf {
public:
    using std::stringbuf::stringbuf;

private:
    std::streamsize xsgetn(char*, std::streamsize) override { throw std::ios_base::failure("Input/output error"); }
};

TEST(LineReader, aReadErrorIsAFaultThatNamesTheFile)
{
    FailingDisk disk("1,2\n3,4\n");
    std::istream stream(&disk);
    EXPECT_THAT(refusalOfLines(stream), HasSubstr("|\"record.csv\" cannot be read: the system reports an error"));
}

/// A file that is back at its start so many times, and then no more.
class RewindsOften : public std::stringbuf {
public:
    RewindsOften(const std::string& text, int times) : std::stringbuf(text), m_left(times) {}

private:
    std::streampos seekpos(std::streampos position, std::ios::openmode mode) override
    {
        return m_left-- > 0 ? std::stringbuf::seekpos(position, mode) : std::streampos(-1);
    }
    int m_left;
};

TEST(LineReader, aStreamThatDoesNotGoBackIsAFaultWhereverThatHappens)
{
    // For the kind of line end, for the top, for the first line after it, and for the rows once they are counted.
    constexpr int kTimes = 4;
    for (int times = 0; times <= kTimes; ++times) {
        RewindsOften file("Day,S1\n1,2\n3,4\n", times);
        std::istream stream(&file);
        EXPECT_EQ(refusal(stream),
                  times < kTimes ? "\"record.csv\" cannot be read: the system does not go back to its start." : "");
    }
}

TEST(LineReader, aStreamWithoutPositionsCannotBeRead)
{
    struct Pipe : std::streambuf {
    } pipe;
    std::istream stream(&pipe);
    EXPECT_THAT(refusalOfLines(stream), HasSubstr("\"record.csv\" cannot be read"));
}

} // namespace
} // namespace tarvelint::test
