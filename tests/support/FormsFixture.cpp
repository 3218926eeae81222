#include "FormsFixture.h"

#include "CPLinks.h"
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
    unloadFrmORQ();
    setFrmOrqLoader(nullptr);
}

}  // namespace sidekin::test
