// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/memory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "tests/support/trace_fixture.h"

namespace {

using testing::ElementsAre;

std::vector<std::string> freed;

/// Records when it is destroyed.
class Node : public MMObject {
public:
    explicit Node(std::string newName) : name(std::move(newName)) {}
    ~Node() override { freed.push_back(name); }

    Pointer<Node> other;

private:
    std::string name;
};

class MemoryTest : public testing::Test {
protected:
    MemoryTest() { freed.clear(); }
    ~MemoryTest() override {
        MMObject::CollectGarbage();
        EXPECT_EQ(MMObject::RegisteredCount(), 0U) << "the test left objects behind";
    }
};

TEST_F(MemoryTest, NewObjectIsRegisteredWithACountOfZero) {
    const Node* const node = new Node("a");
    EXPECT_EQ(node->RefCount(), 0);
    EXPECT_EQ(MMObject::RegisteredCount(), 1U);
}

TEST_F(MemoryTest, ObjectThatWasNeverHeldIsFreedByTheNextCollection) {
    new Node("a");
    MMObject::CollectGarbage();
    EXPECT_THAT(freed, ElementsAre("a"));
    EXPECT_EQ(MMObject::RegisteredCount(), 0U);
}

TEST_F(MemoryTest, HeldObjectSurvivesACollection) {
    Pointer<Node> held = new Node("a");
    MMObject::CollectGarbage();
    EXPECT_THAT(freed, ElementsAre());
    EXPECT_EQ(held->RefCount(), 1);
}

TEST_F(MemoryTest, LastReleaseFreesNothing) {
    { const Pointer<Node> held = new Node("a"); }
    EXPECT_THAT(freed, ElementsAre());
    EXPECT_EQ(MMObject::RegisteredCount(), 1U);
}

TEST_F(MemoryTest, ObjectsAreFreedInOrderOfConstruction) {
    new Node("a");
    new Node("b");
    new Node("c");
    MMObject::CollectGarbage();
    EXPECT_THAT(freed, ElementsAre("a", "b", "c"));
}

TEST_F(MemoryTest, ObjectHeldByAnEarlierOneIsFreedInTheSamePass) {
    Node* const holder = new Node("a");
    holder->other = new Node("b");
    MMObject::CollectGarbage();
    EXPECT_THAT(freed, ElementsAre("a", "b"));
}

TEST_F(MemoryTest, ObjectHeldByALaterOneWaitsForTheNextPass) {
    Node* const held = new Node("b");
    Node* const holder = new Node("a");
    holder->other = held;
    MMObject::CollectGarbage();
    EXPECT_THAT(freed, ElementsAre("a"));
    MMObject::CollectGarbage();
    EXPECT_THAT(freed, ElementsAre("a", "b"));
}

TEST_F(MemoryTest, CycleSurvivesEveryCollection) {
    Node* const a = new Node("a");
    Node* const b = new Node("b");
    a->other = b;
    b->other = a;
    for (int pass = 0; pass < 3; ++pass)
        MMObject::CollectGarbage();
    EXPECT_THAT(freed, ElementsAre());
    a->other = nullptr;
    MMObject::CollectGarbage();
    MMObject::CollectGarbage();
    EXPECT_THAT(freed, ElementsAre("b", "a"));
}

/// Runs the final sweep, which cannot be undone, and ends with a status that no failed
/// assertion has.
[[noreturn]] void SweepAndReport() {
    MMObject::CollectAll();
    for (const std::string& name : freed)
        std::cerr << name << ' ';
    std::cerr << MMObject::RegisteredCount();
    std::exit(7);
}

TEST_F(MemoryTest, FinalSweepFreesCyclesAndHeldObjectsInOrderOfConstruction) {
    const auto sweep = [] {
        Node* const a = new Node("a");
        Node* const b = new Node("b");
        a->other = b;
        b->other = a;
        static Pointer<Node> held;
        held = new Node("c");
        SweepAndReport();
    };
    EXPECT_EXIT(sweep(), testing::ExitedWithCode(7), testing::Eq("a b c 0"));
}

TEST_F(MemoryTest, FinalSweepLeavesTheCountsAlone) {
    const auto sweep = [] {
        // The later object is destroyed last, so its count can still be read.
        static std::int32_t count;
        class Last : public MMObject {
        public:
            ~Last() override { count = RefCount(); }
        };
        struct Holder : MMObject {
            Pointer<Last> last;
        };
        auto* const holder = new Holder;
        holder->last = new Last;
        MMObject::CollectAll();
        std::exit(count == 1 ? 7 : 8);
    };
    EXPECT_EXIT(sweep(), testing::ExitedWithCode(7), "");
}

TEST_F(MemoryTest, PointersDoNothingAfterTheFinalSweep) {
    const auto sweep = [] {
        Pointer<Node> held = new Node("a");
        Node* const gone = held;
        MMObject::CollectAll();
        held = nullptr;  // must not read the object, which was freed
        held = gone;
        Pointer<Node> copy = held;
        std::exit(7);
    };
    EXPECT_EXIT(sweep(), testing::ExitedWithCode(7), "");
}

TEST_F(MemoryTest, NewObjectAfterTheFinalSweepFailsTheAssertion) {
    const auto create = [] {
        MMObject::CollectAll();
        new Node("late");
    };
    EXPECT_EXIT(create(), testing::ExitedWithCode(0),
                testing::Eq("Assert failed on quarn2/memory:34 - \"!shutdown\"\n"));
}

TEST_F(MemoryTest, DestroyingAHeldObjectFailsTheAssertion) {
    const auto destroy = [] {
        static Pointer<Node> held;
        held = new Node("a");
        delete static_cast<Node*>(held);
    };
    EXPECT_EXIT(destroy(), testing::ExitedWithCode(0),
                testing::Eq("Assert failed on quarn2/memory:46 - \"refcount==0 || shutdown\"\n"));
}

TEST_F(MemoryTest, ReleaseBelowZeroIsCountedAndMakesTheObjectCollectable) {
    Node* const node = new Node("a");
    node->Release();
    EXPECT_EQ(node->RefCount(), -1);
    // The collector frees it, and its destructor then asserts that the count is zero.
    EXPECT_EXIT(MMObject::CollectGarbage(), testing::ExitedWithCode(0),
                testing::Eq("Assert failed on quarn2/memory:46 - \"refcount==0 || shutdown\"\n"));
    node->AddRef();
}

TEST_F(MemoryTest, PointerCountsItsObject) {
    Node* const node = new Node("a");
    {
        const Pointer<Node> first = node;
        EXPECT_EQ(node->RefCount(), 1);
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is the test
        const Pointer<Node> second = first;
        EXPECT_EQ(node->RefCount(), 2);
        Pointer<Node> third;
        EXPECT_EQ(node->RefCount(), 2);
        third = second;
        EXPECT_EQ(node->RefCount(), 3);
        third = nullptr;
        EXPECT_EQ(node->RefCount(), 2);
    }
    EXPECT_EQ(node->RefCount(), 0);
}

TEST_F(MemoryTest, AssigningAnotherObjectReleasesTheFirst) {
    Node* const a = new Node("a");
    Node* const b = new Node("b");
    Pointer<Node> pointer = a;
    pointer = b;
    EXPECT_EQ(a->RefCount(), 0);
    EXPECT_EQ(b->RefCount(), 1);
}

TEST_F(MemoryTest, AssigningAPointerToItselfLeavesTheCount) {
    Pointer<Node> pointer = new Node("a");
    const Pointer<Node>& itself = pointer;
    pointer = itself;
    EXPECT_EQ(pointer->RefCount(), 1);
    pointer = static_cast<Node*>(pointer);
    EXPECT_EQ(pointer->RefCount(), 1);
}

TEST_F(MemoryTest, PointersCompareByAddress) {
    const Pointer<Node> a = new Node("same");
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is the test
    const Pointer<Node> alsoA = a;
    const Pointer<Node> b = new Node("same");
    EXPECT_TRUE(a == alsoA);
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(!a);
}

TEST_F(MemoryTest, EmptyPointerMayBeReadAndTested) {
    const Pointer<Node> empty;
    EXPECT_TRUE(!empty);
    EXPECT_EQ(static_cast<Node*>(empty), nullptr);
}

TEST_F(MemoryTest, FollowingAnEmptyPointerFailsTheAssertion) {
    const Pointer<Node> empty;
    EXPECT_EXIT(empty->RefCount(), testing::ExitedWithCode(0),
                testing::Eq("Assert failed on quarn2/memory:160 - \"obj!=NULL\"\n"));
}

TEST_F(MemoryTest, PointerIsAsLargeAsAnAddress) {
    EXPECT_EQ(sizeof(Pointer<Node>), sizeof(void*));
}

/// Prints the trace whenever it is counted or freed.
class Informer : public MMObject {
public:
    ~Informer() override { PrintStackTrace(); }
    void AddRef() {
        PrintStackTrace();
        MMObject::AddRef();
    }
};

class MemoryTraceTest : public TracedTest {};

TEST_F(MemoryTraceTest, PointersTraceTheirConstructionAndAssignment) {
    auto* const informer = new Informer;
    testing::internal::CaptureStderr();
    Pointer<Informer> pointer = informer;
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "#2: Pointer::operator=\n#1: Pointer::Pointer\n");
    testing::internal::CaptureStderr();
    pointer = informer;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "#1: Pointer::operator=\n");
    pointer = nullptr;
    testing::internal::CaptureStderr();
    MMObject::CollectGarbage();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "#1: MMObject::CollectGarbage\n");
}

/// Prints the trace whenever a Pointer releases it.
class Released : public MMObject {
public:
    void Release() {
        PrintStackTrace();
        MMObject::Release();
    }
};

TEST_F(MemoryTraceTest, DestructorOfAPointerIsTracedWithItsOwnNameAsTheClass) {
    auto* const object = new Released;
    testing::internal::CaptureStderr();
    { const Pointer<Released> pointer = object; }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "#1: ~Pointer::~Pointer\n");
    Pointer<Released> pointer = object;
    testing::internal::CaptureStderr();
    pointer = nullptr;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "#1: Pointer::operator=\n");
    MMObject::CollectGarbage();
}

TEST_F(MemoryTraceTest, FailuresNameTheOperation) {
    const Pointer<Node> empty;
    EXPECT_EXIT(empty->RefCount(), testing::ExitedWithCode(0), "\n#1: Pointer::operator->\n$");
    const auto lateObject = [] {
        MMObject::CollectAll();
        new Node("late");
    };
    EXPECT_EXIT(lateObject(), testing::ExitedWithCode(0), "\n#1: MMObject::MMObject\n$");
    const auto destroyHeld = [] {
        static Pointer<Node> held;
        held = new Node("a");
        delete static_cast<Node*>(held);
    };
    EXPECT_EXIT(destroyHeld(), testing::ExitedWithCode(0), "\n#1: MMObject::~MMObject\n$");
    const auto finalSweep = [] {
        new Informer;
        MMObject::CollectAll();
        std::exit(7);
    };
    EXPECT_EXIT(finalSweep(), testing::ExitedWithCode(7),
                testing::Eq("#1: MMObject::CollectAll\n"));
}

}  // namespace
