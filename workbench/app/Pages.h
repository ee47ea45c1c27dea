#ifndef PAGES_H
#define PAGES_H

#include <vector>

class Page;
struct PageContext;

/// A page of the workbench as its list, its command line and its tour know it.
struct PageEntry {
    const char* name;  ///< Of the command line; also the page's object name.
    const char* title; ///< Of the list, not translated yet.
    Page* (*make)(const PageContext& context);
};

/// In the order of the list.
const std::vector<PageEntry>& pages();

/// The page, which belongs to the caller, with name and title.
Page* makePage(const PageEntry& entry, const PageContext& context);

#endif
