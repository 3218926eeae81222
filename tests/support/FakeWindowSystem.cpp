#include "FakeWindowSystem.h"

#include <algorithm>

namespace sidekin::test {

FakeWindowSystem::FakeWindowSystem() { setWindowSystem(this); }
FakeWindowSystem::~FakeWindowSystem() { setWindowSystem(nullptr); }

WindowHandle FakeWindowSystem::addWindow(WindowHandle parent, const QString& title) {
    const WindowHandle handle = nextHandle++;
    children[parent].push_back(handle);
    parentOf[handle] = parent;
    titles[handle] = title;
    return handle;
}

WindowHandle FakeWindowSystem::firstChild(WindowHandle parent) {
    ++firstChildCalls;
    if (onFirstChild) onFirstChild(firstChildCalls);
    auto it = children.find(parent);
    return it == children.end() || it->second.empty() ? 0 : it->second.front();
}

WindowHandle FakeWindowSystem::nextSibling(WindowHandle window) {
    auto parent = parentOf.find(window);
    if (parent == parentOf.end()) return 0;
    const auto& chain = children[parent->second];
    auto it = std::find(chain.begin(), chain.end(), window);
    return it == chain.end() || it + 1 == chain.end() ? 0 : *(it + 1);
}

QString FakeWindowSystem::title(WindowHandle window, int maxChars) {
    return titles[window].left(maxChars);
}

WindowHandle FakeWindowSystem::setParent(WindowHandle child, WindowHandle parent) {
    parentings.emplace_back(child, parent);
    const WindowHandle previous = parentOf.count(child) ? parentOf[child] : 0;
    parentOf[child] = parent;
    return previous;
}

}  // namespace sidekin::test
