#include "UnloadForms.h"

#include "CPLinks.h"
#include "EntryForms.h"
#include "FrmOrq.h"
#include "ItemFeed.h"

namespace sidekin {

void unloadAllForms() {
    itemfeed::reset();
    unloadCPLinks();
    unloadEntryForms();
    unloadFrmORQ();
}

}  // namespace sidekin
