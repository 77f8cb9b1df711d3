#include "base/UnitsErrors.h"
#include "engine/EngineImpl.h"
#include "engine/Prefetch.h"

#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace Parameters {

namespace {

/// Of the faults met so far that of the smallest typeid, which is the one to report.
class FirstFault {
public:
    [[nodiscard]] bool isBefore(std::string_view typeId) const noexcept { return fault_ && typeId_ < typeId; }

    /// For the handler of an exception that was thrown for a typeid that the fault is not before.
    void catchCurrent(std::string_view typeId) {
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

/// Calls work with each of the items, and throws the validation error of the smallest typeid if there is one. The items
/// are taken as they stand, without sorting them: their order shows in nothing but the choice of the error.
template <class Items, class GetTypeId, class Work>
void forEachUntilFault(Items& items, GetTypeId getTypeId, Work work) {
    FirstFault fault;
    for (auto& item : items) {
        const std::string_view typeId = getTypeId(item);
        if (fault.isBefore(typeId)) {
            continue;
        }
        try {
            work(item);
        } catch (const ValidationException&) {
            fault.catchCurrent(typeId);
        }
    }
    fault.rethrow();
}

/// Where a resolution looks references up. It finds each unit once.
class ResolutionScope : public LookupScope {
public:
    ResolutionScope(const Units::UnitsEngine& units, const Registry& primary, const Registry& imported)
        : LookupScope(units, primary, imported), unitFinder_(units) {}

    [[nodiscard]] UnitFinder& unitFinder() noexcept { return unitFinder_; }

private:
    UnitFinder unitFinder_;
};

/// Prefetches, step by step, what the items some places behind a position will need.
template <class Kind>
void prefetchAhead(const Registry& registry, UnitFinder& units, std::vector<PendingItem<typename Kind::Body>>& items,
                   std::size_t position) {
    constexpr std::size_t stepSize = 3;
    const auto visitAhead = [&](std::size_t steps, const auto& visit) {
        if (const std::size_t ahead = position + steps * stepSize; ahead < items.size()) {
            visit(items[ahead]);
        }
    };
    visitAhead(4, [](auto& item) {
        prefetch(&*item.body, sizeof(*item.body));
        prefetch(item.text);
    });
    visitAhead(3, [&](auto& item) {
        Kind::dependenciesOfSchema(*item.body, [&](ReferenceTo /*target*/, const TypeIdKey& typeId) {
            prefetchSlot(registry.index(), typeId);
        });
        Kind::unitDependenciesOfSchema(*item.body,
                                       [&](const TypeIdKey& typeId) { prefetchSlot(units.found(), typeId); });
    });
    visitAhead(2, [&](auto& item) {
        Kind::dependenciesOfSchema(*item.body, [&](ReferenceTo /*target*/, const TypeIdKey& typeId) {
            prefetchEntry(registry.index(), typeId);
        });
        Kind::unitDependenciesOfSchema(*item.body,
                                       [&](const TypeIdKey& typeId) { prefetchEntry(units.found(), typeId); });
    });
    visitAhead(1, [&](auto& item) {
        Kind::dependenciesOfSchema(
            *item.body, [&](ReferenceTo /*target*/, const TypeIdKey& typeId) { prefetchItem(registry, typeId); });
    });
}

/// Makes the objects of one kind, of which none depends on another.
template <class Kind> void stagePending(Registry& registry, ResolutionScope& scope) {
    auto& store = registry.store<Kind>();
    store.staged.reserve(store.pending.size());
    const auto typeIdOfPending = [&](const auto& item) { return registry.index()[item.entry].typeId(); };
    forEachUntilFault(store.pending, typeIdOfPending, [&](auto& item) {
        prefetchAhead<Kind>(registry, scope.unitFinder(), store.pending,
                            static_cast<std::size_t>(&item - store.pending.data()));
        registry.stage<Kind>(item, Kind::resolve(typeIdOfPending(item), item.body.take(), scope));
    });
}

/// Only now do all categories stand, so that a parent may come behind its subcategory.
void checkSubcategoryParents(const StoreList<Category>& stores, const std::vector<FinishedItem<Category>>& categories) {
    const auto typeIdOfItem = [](const auto& item) -> const std::string& { return typeIdOf(item.object); };
    forEachUntilFault(categories, typeIdOfItem, [&](const auto& item) {
        const std::string* parentTypeId = parentOf(item.object);
        if (parentTypeId == nullptr) {
            return;
        }
        const Category* parent = stores.find(*parentTypeId);
        if (parent == nullptr || !isMajor(*parent)) {
            throwParentNotMajor(*parentTypeId, typeIdOfItem(item));
        }
    });
}

/// Makes an object of everything pending, beside what is finished, or throws.
void stageAll(Registry& primary, const Registry& imported, const Units::UnitsEngine& units) {
    ResolutionScope scope(units, primary, imported);
    ResolutionOrder::forEach([&](auto kind) { stagePending<decltype(kind)>(primary, scope); });
    const auto categories = scope.stores<CategoryKind>();
    checkSubcategoryParents(categories, primary.store<CategoryKind>().staged);
    checkSubcategoryParents(categories, imported.store<CategoryKind>().finished);
    primary.reserveFor(imported);
}

} // namespace

void ParametersEngine::resolveSchemas() {
    Registry& primary = impl_->primary;
    Registry imported = std::exchange(impl_->imported, {});
    impl_->listed.clear();
    withUnitsValidation([&] {
        impl_->units.resolveSchemas();
        try {
            stageAll(primary, imported, impl_->units);
        } catch (...) {
            primary.dropPending();
            throw;
        }
    });
    primary.finishPending();
    primary.takeFinished(imported);
}

} // namespace Parameters
