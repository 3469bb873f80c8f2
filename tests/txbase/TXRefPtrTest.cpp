#include <txbase/TXRefPtr.h>

#include <optional>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <txbase/TXRefBase.h>

using TZObjects::TXRefBase;
using TZObjects::TXRefPtr;

namespace
{

using Log = std::vector<std::string>;

/// Writes down what its pointers do to it.
class Logged
{
public:
    Logged(Log& log, std::string name) : log(log), name(std::move(name)) {}
    void AddRef() { log.push_back("+" + name); }
    bool Release()
    {
        log.push_back("-" + name);
        return false;
    }

private:
    Log& log;
    std::string name;
};

class Node : public TXRefBase
{
public:
    static int alive;

    explicit Node(TXRefPtr<Node> next = nullptr) : next(std::move(next)) { ++alive; }
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    ~Node() override { --alive; }
    int Answer() const { return 42; }

    TXRefPtr<Node> next;
};

int Node::alive = 0;

class SpecialNode : public Node
{
};

class Stranger : public TXRefBase
{
};

static_assert(sizeof(TXRefPtr<Node>) == sizeof(void*));
static_assert(alignof(TXRefPtr<Node>) == alignof(void*));
static_assert(std::is_nothrow_move_constructible_v<TXRefPtr<Node>>);
static_assert(std::is_nothrow_move_assignable_v<TXRefPtr<Node>>);
static_assert(std::is_convertible_v<Node*, TXRefPtr<Node>>);
static_assert(std::is_convertible_v<std::nullptr_t, TXRefPtr<Node>>);
static_assert(std::is_convertible_v<TXRefPtr<SpecialNode>, TXRefPtr<Node>>);
static_assert(!std::is_convertible_v<TXRefPtr<Node>, TXRefPtr<SpecialNode>>);
static_assert(!std::is_convertible_v<TXRefPtr<Stranger>, TXRefPtr<Node>>);
// A test, not a number that could take part in arithmetic.
static_assert(std::is_constructible_v<bool, TXRefPtr<Node>> && !std::is_convertible_v<TXRefPtr<Node>, int>);
static_assert(std::is_same_v<decltype(std::declval<const TXRefPtr<Node>&>().operator->()), Node*>);
static_assert(std::is_same_v<decltype(*std::declval<const TXRefPtr<Node>&>()), Node&>);

// Interfaces name the pointees of their parameters without defining them.
class NeverDefined;
static_assert(sizeof(TXRefPtr<NeverDefined>) == sizeof(void*));

class Interface
{
public:
    virtual ~Interface() = default;
    virtual TXRefPtr<NeverDefined> Exchange(TXRefPtr<NeverDefined> object) = 0;
};

class Later;

class Holder
{
public:
    explicit Holder(Later* object);
    ~Holder();
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    bool Holds(const Later* object) const { return later && later.get() == object && later != nullptr; }

private:
    TXRefPtr<Later> later;
};

class Later : public TXRefBase
{
};

Holder::Holder(Later* object) : later(object) {}
Holder::~Holder() = default;

} // namespace

TEST(TXRefPtr, IsNullByDefault)
{
    const TXRefPtr<Node> empty;
    const TXRefPtr<Node> null = nullptr;
    const TXRefPtr<Node> fromNull = static_cast<Node*>(nullptr);
    EXPECT_EQ(empty.get(), nullptr);
    EXPECT_EQ(null.get(), nullptr);
    EXPECT_EQ(fromNull.get(), nullptr);
    EXPECT_FALSE(empty);
}

TEST(TXRefPtr, NullsCanBeCopiedMovedAndAssigned)
{
    TXRefPtr<Node> a;
    TXRefPtr<Node> b(a);
    const TXRefPtr<Node> c(std::move(a));
    b = c;
    b = nullptr;
    b = TXRefPtr<Node>();
    EXPECT_FALSE(b);
    EXPECT_FALSE(c);
}

TEST(TXRefPtr, TakesOneReferenceAndDropsIt)
{
    Log log;
    Logged a(log, "a");
    {
        const TXRefPtr<Logged> p(&a);
        EXPECT_EQ(log, Log{"+a"});
        EXPECT_EQ(p.get(), &a);
    }
    EXPECT_EQ(log, (Log{"+a", "-a"}));
}

TEST(TXRefPtr, CopyingTakesAReference)
{
    Log log;
    Logged a(log, "a");
    const TXRefPtr<Logged> p(&a);
    std::optional<TXRefPtr<Logged>> q(p);
    EXPECT_EQ(log, (Log{"+a", "+a"}));
    EXPECT_EQ(q->get(), &a);
    EXPECT_EQ(p.get(), &a);
    q.reset();
    EXPECT_EQ(log, (Log{"+a", "+a", "-a"}));
}

TEST(TXRefPtr, MovingTakesNone)
{
    Log log;
    Logged a(log, "a");
    Logged b(log, "b");
    TXRefPtr<Logged> p(&a);
    TXRefPtr<Logged> q(std::move(p));
    EXPECT_EQ(log, Log{"+a"});
    EXPECT_EQ(q.get(), &a);
    EXPECT_EQ(p.get(), nullptr); // NOLINT(bugprone-use-after-move): null is what a move leaves.
    TXRefPtr<Logged> target(&b);
    log.clear();
    target = std::move(q);
    EXPECT_EQ(log, Log{"-b"});
    EXPECT_EQ(target.get(), &a);
    EXPECT_EQ(q.get(), nullptr); // NOLINT(bugprone-use-after-move)
}

TEST(TXRefPtr, AssignmentTakesTheNewReferenceBeforeItDropsTheOld)
{
    Log log;
    Logged a(log, "a");
    Logged b(log, "b");
    TXRefPtr<Logged> p(&a);
    const TXRefPtr<Logged> q(&b);
    log.clear();
    p = q;
    EXPECT_EQ(log, (Log{"+b", "-a"}));
    EXPECT_EQ(p.get(), &b);
    log.clear();
    p = &a;
    EXPECT_EQ(log, (Log{"+a", "-b"}));
    log.clear();
    p = nullptr;
    EXPECT_EQ(log, Log{"-a"});
}

TEST(TXRefPtr, AssignmentOfItselfKeepsTheObject)
{
    TXRefPtr<Node> p = new Node;
    const TXRefPtr<Node>& itself = p;
    p = itself;
    ASSERT_EQ(Node::alive, 1);
    p = p.get();
    ASSERT_EQ(Node::alive, 1);
    TXRefPtr<Node>& movable = p;
    p = std::move(movable);
    ASSERT_EQ(Node::alive, 1);
    ASSERT_TRUE(p);
    p = nullptr;
    EXPECT_EQ(Node::alive, 0);
}

TEST(TXRefPtr, AnObjectThatOnlyTheOldOneHoldsMayBeAssigned)
{
    TXRefPtr<Node> list = new Node(new Node(new Node));
    ASSERT_EQ(Node::alive, 3);
    list = list->next;
    EXPECT_EQ(Node::alive, 2);
    list = std::move(list->next);
    EXPECT_EQ(Node::alive, 1);
    list = list->next;
    EXPECT_EQ(Node::alive, 0);
    EXPECT_FALSE(list);
}

TEST(TXRefPtr, TheLastOneDestroysTheObject)
{
    TXRefPtr<Node> p = new Node;
    {
        const TXRefPtr<Node> q = p;
        p = nullptr;
        EXPECT_EQ(Node::alive, 1);
    }
    EXPECT_EQ(Node::alive, 0);
}

TEST(TXRefPtr, ConvertsFromDerived)
{
    TXRefPtr<SpecialNode> special = new SpecialNode;
    TXRefPtr<Node> plain = special;
    EXPECT_EQ(plain.get(), special.get());
    special = nullptr;
    EXPECT_EQ(Node::alive, 1);
    plain = TXRefPtr<SpecialNode>(new SpecialNode);
    EXPECT_EQ(Node::alive, 1);
    plain = nullptr;
    EXPECT_EQ(Node::alive, 0);
}

TEST(TXRefPtr, ReachesTheObject)
{
    const TXRefPtr<Node> p = new Node;
    EXPECT_EQ(p->Answer(), 42);
    EXPECT_EQ((*p).Answer(), 42);
    EXPECT_EQ(&*p, p.get());
}

TEST(TXRefPtr, TestsForNull)
{
    const TXRefPtr<Node> p = new Node;
    const TXRefPtr<Node> null;
    EXPECT_TRUE(static_cast<bool>(p));
    EXPECT_TRUE(!null);
    EXPECT_TRUE(p != nullptr && nullptr != p);
    EXPECT_TRUE(null == nullptr && nullptr == null);
    EXPECT_FALSE(p == nullptr || nullptr == p);
    EXPECT_FALSE(null != nullptr || nullptr != null);
}

TEST(TXRefPtr, ComparesWithPointers)
{
    const TXRefPtr<SpecialNode> p = new SpecialNode;
    const TXRefPtr<Node> same = p;
    const TXRefPtr<Node> other = new Node;
    Node* const raw = p.get();
    const Node* const constant = raw;
    EXPECT_TRUE(p == same && same == p && p == raw && raw == p && p == constant && constant == p);
    EXPECT_FALSE(p != same || p != raw || raw != p || p != constant || constant != p);
    EXPECT_TRUE(p != other && other != p && other != raw && raw != other);
    EXPECT_FALSE(p == other || other == raw || raw == other);
}

TEST(TXRefPtr, Swaps)
{
    Log log;
    Logged a(log, "a");
    Logged b(log, "b");
    TXRefPtr<Logged> p(&a);
    TXRefPtr<Logged> q(&b);
    log.clear();
    p.swap(q);
    EXPECT_EQ(p.get(), &b);
    EXPECT_EQ(q.get(), &a);
    EXPECT_EQ(log, Log{});
}

TEST(TXRefPtr, HoldsTypesThatAreDefinedLater)
{
    Later* const later = new Later;
    const Holder holder(later);
    EXPECT_TRUE(holder.Holds(later));
}

TEST(TXRefPtr, PassesByValueWithoutLosingCount)
{
    const auto pass = [](TXRefPtr<Node> node) { return node; };
    TXRefPtr<Node> p = new Node;
    TXRefPtr<Node> q = pass(p);
    EXPECT_EQ(p, q);
    q = pass(std::move(p));
    EXPECT_EQ(Node::alive, 1);
    q = nullptr;
    EXPECT_EQ(Node::alive, 0);
}

TEST(TXRefPtr, ObjectsMayBeSharedBetweenThreads)
{
    TXRefPtr<Node> shared = new Node;
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(
            [own = shared]
            {
                std::vector<TXRefPtr<Node>> copies;
                for (int round = 0; round < 1000; ++round)
                {
                    copies.assign(50, own);
                    copies.clear();
                }
            });
    for (std::thread& thread : threads)
        thread.join();
    threads.clear();
    EXPECT_EQ(Node::alive, 1);
    shared = nullptr;
    EXPECT_EQ(Node::alive, 0);
}
