#include "Page.h"

#include "TourGuide.h"

void Page::tour(TourGuide& guide) { guide.photograph(objectName()); }
