#include "FormsFixture.h"

#include "CPLinks.h"
#include "EntryForms.h"
#include "FrmOrq.h"
#include "ItemFeed.h"
#include "MainWindowEvents.h"

namespace sidekin::test {

void FormsFixture::SetUp() {
    StartupFixture::SetUp();
    unloadForms();
    installEventWiring();
}

void FormsFixture::TearDown() {
    unloadForms();
    StartupFixture::TearDown();
}

void FormsFixture::unloadForms() {
    itemfeed::reset();
    unloadCPLinks();
    unloadEntryForms();
    unloadFrmORQ();
    setFrmOrqLoader(nullptr);
    setEntryFormLoaders(nullptr, nullptr);
}

}  // namespace sidekin::test
