// A handle is released exactly once, whatever happens to its owner.
#include "platform/unique_handle.hpp"
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <type_traits>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<int> given_back;

// Invalid is not 0, as for a file handle.
struct Counted {
    using Handle = int;
    static Handle invalid() noexcept { return -1; }
    static void close(Handle handle) noexcept { given_back.push_back(handle); }
};
using Owner = platform::unique_handle<Counted>;

class UniqueHandle : public testing::Test {
protected:
    UniqueHandle() { given_back.clear(); }
};

static_assert(!std::is_copy_constructible_v<Owner> && !std::is_copy_assignable_v<Owner>);
static_assert(std::is_nothrow_move_constructible_v<Owner> && std::is_nothrow_move_assignable_v<Owner>);
static_assert(std::is_nothrow_swappable_v<Owner>);
static_assert(!std::is_convertible_v<int, Owner> && !std::is_convertible_v<Owner, bool>);
static_assert(sizeof(Owner) == sizeof(int));

TEST_F(UniqueHandle, ReleasesNothingWhenInvalid)
{
    {
        Owner none;
        EXPECT_FALSE(none);
        EXPECT_EQ(none.get(), Counted::invalid());
        none.reset();
        Owner refused{ Counted::invalid() };
        EXPECT_FALSE(refused);
        EXPECT_EQ(refused.release(), Counted::invalid());
    }
    EXPECT_THAT(given_back, IsEmpty());
}

TEST_F(UniqueHandle, IsReleasedByItsOwnersDestructor)
{
    {
        const Owner owner{ 7 };
        EXPECT_TRUE(owner);
        EXPECT_EQ(owner.get(), 7);
        EXPECT_THAT(given_back, IsEmpty());
    }
    EXPECT_THAT(given_back, ElementsAre(7));
}

// Null is invalid only if the traits define it so.
TEST_F(UniqueHandle, MayBeZero)
{
    {
        const Owner owner{ 0 };
        EXPECT_TRUE(owner);
    }
    EXPECT_THAT(given_back, ElementsAre(0));
}

TEST_F(UniqueHandle, WhenReleasedBelongsToTheCaller)
{
    {
        Owner owner{ 7 };
        EXPECT_EQ(owner.release(), 7);
        EXPECT_FALSE(owner);
        EXPECT_EQ(owner.release(), Counted::invalid());
    }
    EXPECT_THAT(given_back, IsEmpty());
}

TEST_F(UniqueHandle, ResetReleasesAtOnceAndOnlyOnce)
{
    Owner owner{ 7 };
    owner.reset();
    EXPECT_FALSE(owner);
    EXPECT_THAT(given_back, ElementsAre(7));
    owner.reset();
    EXPECT_THAT(given_back, ElementsAre(7));
}

TEST_F(UniqueHandle, ResetTakesAnother)
{
    {
        Owner owner{ 7 };
        owner.reset(8);
        EXPECT_EQ(owner.get(), 8);
        EXPECT_THAT(given_back, ElementsAre(7));
    }
    EXPECT_THAT(given_back, ElementsAre(7, 8));
}

TEST_F(UniqueHandle, ResetWithTheSameKeepsIt)
{
    {
        Owner owner{ 7 };
        owner.reset(owner.get());
        EXPECT_EQ(owner.get(), 7);
        EXPECT_THAT(given_back, IsEmpty());
    }
    EXPECT_THAT(given_back, ElementsAre(7));
}

TEST_F(UniqueHandle, MovesToANewOwner)
{
    {
        Owner from{ 7 };
        const Owner to{ std::move(from) };
        EXPECT_EQ(to.get(), 7);
        EXPECT_FALSE(from); // NOLINT(bugprone-use-after-move): what moving leaves is stated
    }
    EXPECT_THAT(given_back, ElementsAre(7));
}

TEST_F(UniqueHandle, MovedIntoAnOwnerReplacesItsHandle)
{
    {
        Owner from{ 7 };
        Owner to{ 8 };
        to = std::move(from);
        EXPECT_EQ(to.get(), 7);
        EXPECT_FALSE(from); // NOLINT(bugprone-use-after-move)
        EXPECT_THAT(given_back, ElementsAre(8));
        from.reset(9);
    }
    EXPECT_THAT(given_back, ElementsAre(8, 7, 9));
}

TEST_F(UniqueHandle, MovedToItselfStays)
{
    {
        Owner owner{ 7 };
        Owner& same = owner;
        owner = std::move(same);
        EXPECT_EQ(owner.get(), 7);
        EXPECT_THAT(given_back, IsEmpty());
    }
    EXPECT_THAT(given_back, ElementsAre(7));
}

TEST_F(UniqueHandle, SwapsWithAnother)
{
    {
        Owner first{ 7 };
        Owner second{ 8 };
        Owner none;
        std::swap(first, second);
        EXPECT_EQ(first.get(), 8);
        EXPECT_EQ(second.get(), 7);
        std::swap(second, none);
        EXPECT_FALSE(second);
        std::swap(first, first);
        EXPECT_EQ(first.get(), 8);
        EXPECT_THAT(given_back, IsEmpty());
    }
    EXPECT_THAT(given_back, ElementsAre(7, 8));
}

TEST_F(UniqueHandle, PutReleasesTheOldHandleBeforeACallFillsIt)
{
    const auto open = [](int* handle) {
        EXPECT_EQ(*handle, Counted::invalid());
        *handle = 8;
    };
    {
        Owner owner{ 7 };
        open(owner.put());
        EXPECT_EQ(owner.get(), 8);
        EXPECT_THAT(given_back, ElementsAre(7));
    }
    EXPECT_THAT(given_back, ElementsAre(7, 8));
}

TEST_F(UniqueHandle, PutForACallThatFillsNothingLeavesItInvalid)
{
    {
        Owner owner{ 7 };
        owner.put();
        EXPECT_FALSE(owner);
    }
    EXPECT_THAT(given_back, ElementsAre(7));
}

TEST_F(UniqueHandle, OfManyOwnersAreReleasedOnceEach)
{
    constexpr int many = 100;
    {
        std::vector<Owner> owners;
        for (int handle = 0; handle < many; ++handle)
            owners.emplace_back(handle); // sometimes moves those before it
        owners.erase(owners.begin() + 10, owners.begin() + 20);
    }
    std::vector<int> each(many);
    for (int handle = 0; handle < many; ++handle)
        each[static_cast<std::size_t>(handle)] = handle;
    EXPECT_THAT(given_back, testing::UnorderedElementsAreArray(each));
}

// Releasing may access the owner again, as a window does that is notified of the destruction.
struct Reentrant {
    using Handle = int;
    static inline platform::unique_handle<Reentrant>* owner = nullptr;
    static Handle invalid() noexcept { return 0; }
    static void close(Handle handle) noexcept
    {
        given_back.push_back(handle);
        owner->reset();
    }
};

TEST_F(UniqueHandle, IsForgottenBeforeItIsReleased)
{
    platform::unique_handle<Reentrant> owner{ 7 };
    Reentrant::owner = &owner;
    owner.reset();
    EXPECT_THAT(given_back, ElementsAre(7));
}

int freed = 0;
void free_number(int*)
{
    ++freed;
}

TEST_F(UniqueHandle, OfAPointerIsInvalidWhenNull)
{
    using Number = platform::unique_handle<platform::GivenBackBy<int*, &free_number>>;
    freed = 0;
    int number = 5;
    {
        Number none;
        EXPECT_FALSE(none);
        Number owner{ &number };
        EXPECT_TRUE(owner);
    }
    EXPECT_EQ(freed, 1);
}

} // namespace
