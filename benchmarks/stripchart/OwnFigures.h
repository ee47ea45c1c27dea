#ifndef OWNFIGURES_H
#define OWNFIGURES_H

/// Measures and prints what only the library's graph is asked: how its costs grow, what samples,
/// replies and hidden widgets cost, and what a frame allocates. Each line ends with its aim.
void printOwnFigures(int frames);

#endif
