#include "support/Exception.h"
#include "support/Object.h"
#include "support/ObjectId.h"
#include "support/SmartPtr.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace {

struct Counted : Core::Object {
    explicit Counted(int *counter) : deaths(counter) {}
    ~Counted() override { ++*deaths; }
    int *deaths;
};

// Collects the engine's log for the length of a test.
class LogCapture {
public:
    LogCapture()
    {
        Core::setLogSink([this](const Core::String &line) { lines.push_back(line); });
    }
    ~LogCapture() { Core::setLogSink(nullptr); }
    std::vector<Core::String> lines;
};

} // namespace

TEST(SmartPtrTest, LastHolderDeletesTheObject)
{
    int deaths = 0;
    {
        SmartPtr<Counted> first(new Counted(&deaths));
        SmartPtr<Core::Object> second = first;
        EXPECT_EQ(first->referenceCount(), 2);
        first.reset();
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(SmartPtrTest, NullDereferenceIsLoggedThenThrown)
{
    LogCapture log;
    SmartPtr<Counted> empty;
    EXPECT_FALSE(empty);
    try {
        (void)empty->deaths;
        FAIL() << "no exception";
    } catch (const Core::NullPointerException &error) {
        EXPECT_GT(error.getLine(), 0);
        EXPECT_FALSE(error.getFile().empty());
    }
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_TRUE(log.lines[0].startsWith("Core::NullPointerException: ")) << log.lines[0];
    EXPECT_TRUE(log.lines[0].contains("SmartPtr.h:")) << log.lines[0];
    EXPECT_THROW((void)*empty, Core::Exception);
}

TEST(ObjectIdTest, IdsAreUniqueNamesThatStartWithALetter)
{
    std::set<Core::String> seen;
    for (int i = 0; i < 1000; ++i) {
        const Core::String id = ObjectId::generate();
        ASSERT_EQ(id.length(), 34);
        ASSERT_TRUE(id.startsWith("id"));
        for (const char16_t c : id.units())
            ASSERT_TRUE((c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z')) << id;
        ASSERT_TRUE(seen.insert(id).second) << id;
    }
    // The security records take a digit and the first seven characters.
    EXPECT_EQ(("0" + ObjectId::generate()).subString(0, 7).length(), 8);
}
