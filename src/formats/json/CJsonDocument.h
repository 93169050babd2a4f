#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "formats/json/SReading.h"

namespace nestrix {

class CJsonDocument;
class CJsonElements;
class CJsonMembers;

/// A value in a document, with the line where it stands. It views the document, which must stay where it is.
class CJsonValue {
public:
    enum class EKind : uint8_t { NOTHING, NO, YES, NUMBER, WHOLE, TEXT, ARRAY, OBJECT };

    CJsonValue(const CJsonDocument& document, size_t nNode) : m_pDocument(&document), m_nNode(nNode) {}

    [[nodiscard]] EKind Kind() const;

    /// Of the file, from 1; of an array or an object that of its bracket.
    [[nodiscard]] int Line() const;

    /// The nearest double; of a NUMBER or a WHOLE only.
    [[nodiscard]] double Number() const;

    /// Of a WHOLE only: a number from 0 to 2^64 − 1 without a fraction or an exponent.
    [[nodiscard]] uint64_t Whole() const;

    /// Of a TEXT only.
    [[nodiscard]] std::string_view Text() const;

    /// What an ARRAY holds; nothing for other kinds.
    [[nodiscard]] CJsonElements Elements() const;

    /// What an OBJECT holds, in the order of the file; nothing for other kinds.
    [[nodiscard]] CJsonMembers Members() const;

    /// The member of an OBJECT, if there is one of that name; nothing for other kinds.
    [[nodiscard]] std::optional<CJsonValue> Find(std::string_view name) const;

    /// Where the value is, as a JSON pointer (RFC 6901): "/pieces/3/quantity"; empty for the outermost.
    /// That of a member's name is the member's.
    [[nodiscard]] std::string Pointer() const;

    /// The value in words for a user: itself, if it is short, or "an array".
    [[nodiscard]] std::string InWords() const;

private:
    friend class CJsonElements;
    friend class CJsonMembers;

    struct SStep;

    /// What this holds that is or holds the node.
    [[nodiscard]] SStep FindStepTo(size_t nNode) const;

    /// Behind the value and all that it holds.
    [[nodiscard]] size_t NextNode() const;

    const CJsonDocument* m_pDocument;
    size_t m_nNode;
};

/// From a value to one that it holds.
struct CJsonValue::SStep {
    std::string m_Name;  ///< as a part of a pointer
    CJsonValue m_To;
};

/// A JSON file with its values in one long row: an array or an object is followed by what it holds. So no
/// nesting is deep, and no file of a hundred megabytes is a hundred million allocations.
class CJsonDocument {
public:
    /// Reads a file. Faults: no file, no JSON, a member twice in an object, deeper nesting or more values
    /// than any file of ours has. Throws nothing but std::bad_alloc.
    [[nodiscard]] static SReading<CJsonDocument> Read(const std::string& path);

    /// The outermost value.
    [[nodiscard]] CJsonValue Root() const { return {*this, 0}; }

private:
    friend class CJsonValue;
    friend class CJsonMembers;
    friend class CJsonBuilder;

    struct SNode {
        uint64_t m_nContent = 0;  ///< bits of a double; a whole number; where in m_Texts; the node behind
        int m_nLine = 0;
        CJsonValue::EKind m_eKind = CJsonValue::EKind::NOTHING;
    };

    [[nodiscard]] std::string_view TextAt(size_t nPlace) const;

    std::deque<SNode>
        m_Nodes;          ///< unlike a vector it is never held twice. A member is its name and its value
    std::string m_Texts;  ///< each behind its length
};

/// A range of the values that an array holds.
class CJsonElements {
public:
    /// Goes from element to element.
    class CIterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = CJsonValue;
        using difference_type = std::ptrdiff_t;
        using pointer = const CJsonValue*;
        using reference = const CJsonValue&;

        explicit CIterator(CJsonValue value) : m_Value(value) {}
        const CJsonValue& operator*() const { return m_Value; }
        const CJsonValue* operator->() const { return &m_Value; }
        CIterator& operator++() {
            m_Value.m_nNode = m_Value.NextNode();
            return *this;
        }
        bool operator==(const CIterator& other) const { return m_Value.m_nNode == other.m_Value.m_nNode; }

    private:
        CJsonValue m_Value;
    };

    CJsonElements(CJsonValue first, CJsonValue behind) : m_First(first), m_Behind(behind) {}
    // NOLINTBEGIN(readability-identifier-naming): the names that a loop over a range wants
    [[nodiscard]] CIterator begin() const { return CIterator(m_First); }
    [[nodiscard]] CIterator end() const { return CIterator(m_Behind); }
    // NOLINTEND(readability-identifier-naming)

private:
    CJsonValue m_First;
    CJsonValue m_Behind;
};

/// One member of an object.
struct SJsonMember {
    CJsonValue m_Name;  ///< a TEXT
    CJsonValue m_Value;
};

/// A range of the members that an object holds.
class CJsonMembers {
public:
    /// Goes from member to member.
    class CIterator {
    public:
        explicit CIterator(CJsonValue name) : m_Name(name) {}
        SJsonMember operator*() const { return {m_Name, {*m_Name.m_pDocument, m_Name.NextNode()}}; }
        CIterator& operator++() {
            m_Name.m_nNode = (**this).m_Value.NextNode();
            return *this;
        }
        bool operator==(const CIterator& other) const { return m_Name.m_nNode == other.m_Name.m_nNode; }

    private:
        CJsonValue m_Name;
    };

    CJsonMembers(CJsonValue first, CJsonValue behind) : m_First(first), m_Behind(behind) {}
    // NOLINTBEGIN(readability-identifier-naming): the names that a loop over a range wants
    [[nodiscard]] CIterator begin() const { return CIterator(m_First); }
    [[nodiscard]] CIterator end() const { return CIterator(m_Behind); }
    // NOLINTEND(readability-identifier-naming)

private:
    CJsonValue m_First;
    CJsonValue m_Behind;
};

}  // namespace nestrix
