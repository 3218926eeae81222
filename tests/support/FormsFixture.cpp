#include "FormsFixture.h"

#include "CPLinks.h"
#include "EntryForms.h"
#include "FrmOrq.h"
#include "MainWindowEvents.h"
#include "UnloadForms.h"

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
    unloadAllForms();
    setFrmOrqLoader(nullptr);
    setCPLinksLoader(nullptr);
    setEntryFormLoaders(nullptr, nullptr);
}

}  // namespace sidekin::test
