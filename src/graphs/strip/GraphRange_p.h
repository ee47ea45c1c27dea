#ifndef GRAPHRANGE_P_H
#define GRAPHRANGE_P_H

#include <QList>

#include <optional>

class Graph;

/// The value range that a live graph's axis is asked to show.
class GraphRange
{
public:
    /// Of all stored samples, in sight or not.
    struct Extremes {
        double lowest;
        double highest;
        bool isEmpty; ///< there are no numbers: the other two tell nothing
    };
    /// Nothing while one of the curves has fewer than two samples. A minimum above 214783647 and a
    /// maximum below -214783648 count as these.
    static std::optional<Extremes> extremesOf(const QList<Graph*>& graphs);

    int minimum = -100;
    int maximum = 100;

    /// Takes the round range about the extremes. False, and the range stays, when it is theirs
    /// already or there are none.
    bool follow(const Extremes& extremes);
    /// Moves equal ends apart, by 1 to each side; at the ends of int only the other side gives way.
    void separate();

    bool operator==(const GraphRange& other) const
    {
        return minimum == other.minimum && maximum == other.maximum;
    }
};

#endif
