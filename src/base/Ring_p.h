#ifndef RING_P_H
#define RING_P_H

#include <cstddef>
#include <vector>

/// A queue in one block of memory: it grows at the back, shrinks at both ends, and allocates only
/// when it holds more than ever before.
template <class T>
class Ring
{
public:
    bool isEmpty() const { return m_count == 0; }
    std::size_t size() const { return m_count; }

    T& operator[](std::size_t index) { return m_block[(m_first + index) & (m_block.size() - 1)]; }
    const T& operator[](std::size_t index) const
    {
        return m_block[(m_first + index) & (m_block.size() - 1)];
    }
    T& front() { return (*this)[0]; }
    const T& front() const { return (*this)[0]; }
    T& back() { return (*this)[m_count - 1]; }
    const T& back() const { return (*this)[m_count - 1]; }

    void append(const T& value)
    {
        if (m_count == m_block.size())
            grow();
        ++m_count;
        back() = value;
    }
    void removeFirst()
    {
        m_first = (m_first + 1) & (m_block.size() - 1);
        --m_count;
    }
    void removeLast() { --m_count; }
    void clear() { m_first = m_count = 0; }

private:
    void grow()
    {
        std::vector<T> block(m_block.empty() ? 16 : 2 * m_block.size()); // a power of two
        for (std::size_t i = 0; i < m_count; ++i)
            block[i] = (*this)[i];
        m_block.swap(block);
        m_first = 0;
    }

    std::vector<T> m_block;
    std::size_t m_first = 0;
    std::size_t m_count = 0;
};

#endif
