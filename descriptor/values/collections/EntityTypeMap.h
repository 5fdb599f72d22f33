#pragma once

#include "descriptor/EntityFullType.h"

#include "qzutl/qzFixedSizeAllocatorND.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>

namespace qzDescriptor {

/// Values by entity type, one per type: a table of chained nodes that come from a pool of the map's own.
///
/// The number of buckets and the hash fix the order of iteration: by bucket, and within a bucket in order of
/// insertion. A value keeps its address until it is erased. The map locks nothing but its pool: its owner
/// guards it.
template <class T>
class EntityTypeMap {
public:
    struct Entry {
        EntityFullType type;
        T value;
    };

    class const_iterator;

    /// poolBlock: how many entries one allocation makes room for.
    explicit EntityTypeMap(unsigned int poolBlock) : m_poolBlock(poolBlock) {}
    EntityTypeMap(EntityTypeMap const& other) : EntityTypeMap(other, other.m_poolBlock) {}
    EntityTypeMap(EntityTypeMap const& other, unsigned int poolBlock);
    EntityTypeMap(EntityTypeMap&&) noexcept = default;
    EntityTypeMap& operator=(EntityTypeMap const& other) {
        *this = EntityTypeMap(other, m_poolBlock);
        return *this;
    }
    EntityTypeMap& operator=(EntityTypeMap&&) noexcept = default;

    unsigned int GetCount() const;

    T* Find(EntityFullType const& type);
    T const* Find(EntityFullType const& type) const { return const_cast<EntityTypeMap*>(this)->Find(type); }

    /// Puts the value under the type, in place of the one that was there.
    T& Set(EntityFullType type, T value);
    bool Erase(EntityFullType const& type);
    void Clear() { m_table.reset(); }

    const_iterator begin() const;
    const_iterator end() const { return {}; }

private:
    static constexpr std::size_t s_bucketCount = 2048;
    static constexpr unsigned int s_largestPoolBlock = 4096; // what a caller asks for may be absurd

    struct Node {
        Entry entry;
        Node* next = nullptr;
    };

    /// The buckets that hold entries: a walk through them passes over the empty ones without reading them.
    class BucketMarks {
    public:
        void Set(std::size_t bucket) { m_words[bucket / 64] |= std::uint64_t{1} << bucket % 64; }
        void Reset(std::size_t bucket) { m_words[bucket / 64] &= ~(std::uint64_t{1} << bucket % 64); }

        /// The first marked bucket from the given one on; s_bucketCount when there is none.
        std::size_t FindFrom(std::size_t bucket) const {
            for (; bucket < s_bucketCount; bucket = (bucket / 64 + 1) * 64)
                if (std::uint64_t const marks = m_words[bucket / 64] >> bucket % 64; marks != 0)
                    return bucket + static_cast<std::size_t>(std::countr_zero(marks));
            return s_bucketCount;
        }

        template <class Visit>
        void ForEach(Visit visit) const {
            for (std::size_t bucket = FindFrom(0); bucket < s_bucketCount; bucket = FindFrom(bucket + 1))
                visit(bucket);
        }

    private:
        std::array<std::uint64_t, s_bucketCount / 64> m_words{};
    };

    struct Table {
        explicit Table(unsigned int poolBlock) : pool(qzPoolSettings{poolBlock, poolBlock, 1.0}) {}
        Table(Table const&) = delete;
        Table& operator=(Table const&) = delete;
        ~Table();

        Node* Create(Entry&& entry);
        void Destroy(Node* node);

        std::array<Node*, s_bucketCount> buckets{};
        BucketMarks occupied;
        qzFixedSizeAllocatorND<Node> pool;
    };

    static std::size_t P_GetBucket(EntityFullType const& type) {
        return EntityFullType::hash()(type) % s_bucketCount;
    }

    // The link to the node of the type; the empty link at the end of its chain when there is none.
    static Node** P_FindLink(Table& table, EntityFullType const& type) {
        Node** link = &table.buckets[P_GetBucket(type)];
        while (*link != nullptr && !((*link)->entry.type == type))
            link = &(*link)->next;
        return link;
    }

    Table& P_GetTable() {
        if (!m_table)
            m_table = std::make_unique<Table>(std::min(m_poolBlock, s_largestPoolBlock));
        return *m_table;
    }

    unsigned int m_poolBlock;
    std::unique_ptr<Table> m_table; // made when first needed: most maps of a model stay empty
};

/// Walks the entries; a change of the map other than to a value ends its use.
template <class T>
class EntityTypeMap<T>::const_iterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = Entry;
    using difference_type = std::ptrdiff_t;
    using pointer = Entry const*;
    using reference = Entry const&;

    const_iterator() = default;

    reference operator*() const { return m_node->entry; }
    pointer operator->() const { return &m_node->entry; }

    const_iterator& operator++() {
        m_node = m_node->next;
        if (m_node == nullptr)
            P_EnterBucketFrom(m_bucket + 1);
        return *this;
    }

    const_iterator operator++(int) {
        const_iterator const before = *this;
        ++*this;
        return before;
    }

    friend bool operator==(const_iterator const& a, const_iterator const& b) { return a.m_node == b.m_node; }

private:
    friend class EntityTypeMap;

    explicit const_iterator(Table const& table) : m_table(&table) { P_EnterBucketFrom(0); }

    void P_EnterBucketFrom(std::size_t bucket) {
        m_bucket = m_table->occupied.FindFrom(bucket);
        m_node = m_bucket < s_bucketCount ? m_table->buckets[m_bucket] : nullptr;
    }

    Table const* m_table = nullptr;
    std::size_t m_bucket = 0;
    Node const* m_node = nullptr;
};

template <class T>
EntityTypeMap<T>::Table::~Table() {
    occupied.ForEach([&](std::size_t bucket) {
        for (Node* node = buckets[bucket]; node != nullptr;)
            Destroy(std::exchange(node, node->next));
    });
}

template <class T>
auto EntityTypeMap<T>::Table::Create(Entry&& entry) -> Node* {
    static_assert(std::is_nothrow_move_constructible_v<Entry>, "a slot whose node failed would be lost");
    return ::new (pool.Allocate()) Node{std::move(entry)};
}

template <class T>
void EntityTypeMap<T>::Table::Destroy(Node* node) {
    node->~Node();
    pool.Release(node);
}

template <class T>
EntityTypeMap<T>::EntityTypeMap(EntityTypeMap const& other, unsigned int poolBlock) : m_poolBlock(poolBlock) {
    if (other.begin() == other.end())
        return;
    Table& table = P_GetTable();
    other.m_table->occupied.ForEach([&](std::size_t bucket) {
        table.occupied.Set(bucket);
        Node** link = &table.buckets[bucket];
        for (Node const* node = other.m_table->buckets[bucket]; node != nullptr; node = node->next) {
            *link = table.Create(Entry(node->entry));
            link = &(*link)->next;
        }
    });
}

template <class T>
unsigned int EntityTypeMap<T>::GetCount() const {
    return m_table ? static_cast<unsigned int>(m_table->pool.GetLiveCount()) : 0;
}

template <class T>
T* EntityTypeMap<T>::Find(EntityFullType const& type) {
    Node* const node = m_table ? *P_FindLink(*m_table, type) : nullptr;
    return node != nullptr ? &node->entry.value : nullptr;
}

template <class T>
T& EntityTypeMap<T>::Set(EntityFullType type, T value) {
    Table& table = P_GetTable();
    Node** const link = P_FindLink(table, type);
    if (*link == nullptr) {
        std::size_t const bucket = P_GetBucket(type);
        *link = table.Create(Entry{std::move(type), std::move(value)});
        table.occupied.Set(bucket);
    } else {
        (*link)->entry = Entry{std::move(type), std::move(value)};
    }
    return (*link)->entry.value;
}

template <class T>
bool EntityTypeMap<T>::Erase(EntityFullType const& type) {
    Node** const link = m_table ? P_FindLink(*m_table, type) : nullptr;
    if (link == nullptr || *link == nullptr)
        return false;
    Node* const node = *link;
    *link = node->next;
    if (std::size_t const bucket = P_GetBucket(node->entry.type); m_table->buckets[bucket] == nullptr)
        m_table->occupied.Reset(bucket);
    m_table->Destroy(node);
    return true;
}

template <class T>
auto EntityTypeMap<T>::begin() const -> const_iterator {
    return m_table ? const_iterator(*m_table) : end();
}

} // namespace qzDescriptor
