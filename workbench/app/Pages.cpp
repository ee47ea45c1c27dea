#include "Pages.h"

#include "CapturePage.h"
#include "ColoursPage.h"
#include "ConnectionPage.h"
#include "ConsolePage.h"
#include "GraphPage.h"
#include "MarkersPage.h"
#include "MotionPage.h"
#include "ParametersPage.h"
#include "PollingPage.h"
#include "RampPage.h"
#include "RegistersPage.h"

#include <QCoreApplication>

#include <type_traits>

namespace
{

/// Pages that need nothing of the context do not take it.
template <class Kind>
Page* make([[maybe_unused]] const PageContext& context)
{
    if constexpr (std::is_constructible_v<Kind, const PageContext&>)
        return new Kind(context);
    else
        return new Kind;
}

} // namespace

const std::vector<PageEntry>& pages()
{
    static const std::vector<PageEntry> all = {
        {"connection", QT_TRANSLATE_NOOP("Pages", "Connection"), make<ConnectionPage>},
        {"console", QT_TRANSLATE_NOOP("Pages", "Console"), make<ConsolePage>},
        {"motion", QT_TRANSLATE_NOOP("Pages", "Motion"), make<MotionPage>},
        {"parameters", QT_TRANSLATE_NOOP("Pages", "Parameters"), make<ParametersPage>},
        {"polling", QT_TRANSLATE_NOOP("Pages", "Polling"), make<PollingPage>},
        {"graph", QT_TRANSLATE_NOOP("Pages", "Graph"), make<GraphPage>},
        {"capture", QT_TRANSLATE_NOOP("Pages", "Capture"), make<CapturePage>},
        {"registers", QT_TRANSLATE_NOOP("Pages", "Registers"), make<RegistersPage>},
        {"colours", QT_TRANSLATE_NOOP("Pages", "Colours"), make<ColoursPage>},
        {"markers", QT_TRANSLATE_NOOP("Pages", "Markers"), make<MarkersPage>},
        {"ramp", QT_TRANSLATE_NOOP("Pages", "Ramp"), make<RampPage>},
    };
    return all;
}

Page* makePage(const PageEntry& entry, const PageContext& context)
{
    Page* page = entry.make(context);
    page->setObjectName(QString::fromLatin1(entry.name));
    page->setWindowTitle(QCoreApplication::translate("Pages", entry.title));
    return page;
}
