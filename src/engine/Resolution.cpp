#include "engine/EngineImpl.h"
#include "schema/UnitsErrors.h"

#include <exception>
#include <string>
#include <utility>

namespace Parameters {

namespace {

/// Takes everything pending out of the registry.
Registry stagePending(Registry& primary) noexcept {
    Registry staged;
    AllKinds::forEach([&](auto kind) {
        using Kind = decltype(kind);
        staged.store<Kind>().pending = std::exchange(primary.store<Kind>().pending, {});
    });
    return staged;
}

/// Of the faults met so far that of the smallest typeid, which is the one to report.
class FirstFault {
public:
    [[nodiscard]] bool isBefore(const std::string& typeId) const noexcept { return fault_ && typeId_ < typeId; }

    /// For the handler of an exception that was thrown for a typeid that the fault is not before.
    void catchCurrent(const std::string& typeId) {
        typeId_ = typeId;
        fault_ = std::current_exception();
    }

    void rethrow() const {
        if (fault_) {
            std::rethrow_exception(fault_);
        }
    }

private:
    std::string typeId_;
    std::exception_ptr fault_;
};

/// Makes the objects of one kind. None depends on another of its kind, so they are made as they come, without sorting
/// them by typeid: that order shows in which of several faults is reported, and nowhere else.
template <class Kind> void resolveStage(KindStore<Kind>& staged, const LookupScope& scope) {
    auto pending = std::exchange(staged.pending, {});
    staged.finished.reserveMore(pending.size());
    FirstFault fault;
    for (auto& entry : pending) {
        if (fault.isBefore(entry.typeId)) {
            continue;
        }
        try {
            auto object = Kind::resolve(entry.typeId, std::move(*entry.value.body), scope);
            staged.finished.insert(std::move(entry.typeId), {std::move(object), std::move(entry.value.text)});
        } catch (const ValidationException&) {
            fault.catchCurrent(entry.typeId);
        }
    }
    fault.rethrow();
}

/// Only now do all categories stand, so that a parent may come behind its subcategory.
void checkSubcategoryParents(const StoreList<Category>& categoryStores, const ObjectMap<Category>& categories) {
    for (const auto* entry : categories.sorted()) {
        const std::string* parentTypeId = parentOf(entry->value.object);
        if (parentTypeId == nullptr) {
            continue;
        }
        const Category* parent = categoryStores.find(*parentTypeId);
        if (parent == nullptr || !isMajor(*parent)) {
            raiseParentNotMajor(*parentTypeId, entry->typeId);
        }
    }
}

void reserveFor(Registry& target, const Registry& first, const Registry& second) {
    AllKinds::forEach([&](auto kind) {
        using Kind = decltype(kind);
        target.store<Kind>().finished.reserveMore(first.store<Kind>().finished.size() +
                                                  second.store<Kind>().finished.size());
    });
}

/// Moves finished objects, with their texts, into the target unless it knows the typeid, of whatever kind. The target
/// has room, so nothing can fail half-way.
void mergeFinished(Registry& target, Registry& source) noexcept {
    AllKinds::forEach([&](auto kind) {
        using Kind = decltype(kind);
        for (auto& entry : source.store<Kind>().finished) {
            if (!target.contains(entry.typeId)) {
                target.store<Kind>().finished.insert(std::move(entry.typeId), std::move(entry.value));
            }
        }
    });
}

} // namespace

void ParametersEngine::resolveSchemas() {
    Registry& primary = impl_->primary;
    Registry importedBatch = std::exchange(impl_->imported, {});
    withUnitsValidation([&] {
        impl_->units.resolveSchemas();
        Registry staged = stagePending(primary);
        const LookupScope scope(impl_->units, primary, staged, importedBatch);
        ResolutionOrder::forEach([&](auto kind) { resolveStage(staged.store<decltype(kind)>(), scope); });
        for (const Registry* registry : {&staged, &importedBatch}) {
            checkSubcategoryParents(scope.stores<CategoryKind>(), registry->store<CategoryKind>().finished);
        }
        reserveFor(primary, staged, importedBatch);
        mergeFinished(primary, staged);
    });
    mergeFinished(primary, importedBatch);
}

} // namespace Parameters
