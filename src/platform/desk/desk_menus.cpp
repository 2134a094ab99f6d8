// Menus on the desk; see desk_menus.h.
#include "platform/desk/desk_menus.h"

#include "platform/desk/desk_core.h"

#include <algorithm>

namespace corvel::desk {
namespace {

constexpr std::uint32_t kNone = 0xFFFFFFFF;
constexpr std::uint32_t kKeptFlags =
    menu_flag::kGrayed | menu_flag::kChecked | menu_flag::kPopup | menu_flag::kSeparator;

// The row's own text; a separator has none.
std::string RowText(std::uint32_t flags, std::string_view text) {
  return flags & menu_flag::kSeparator ? std::string() : std::string(text);
}

}  // namespace

DeskMenus::DeskMenus(Desk& desk) : desk_(desk) {}

DeskMenus::Menu* DeskMenus::Find(MenuHandle menu) {
  const auto it = menus_.find(menu.value);
  return it == menus_.end() ? nullptr : &it->second;
}

// The same for an order or a question, which a process that hangs doesn't take.
DeskMenus::Menu* DeskMenus::Reach(MenuHandle menu) {
  const Menu* const found = Find(menu);
  const Process* owner = found ? desk_.impl().processes.Running(found->process) : nullptr;
  if (owner && owner->hung) desk_.windows().impl().Answers(*owner);
  return owner && owner->hung && owner->id != desk_.Current() ? nullptr : Find(menu);
}

const DeskMenus::Row* DeskMenus::RowAt(MenuHandle menu, int position) {
  const Menu* found = Reach(menu);
  const auto at = static_cast<std::size_t>(position);
  return found && position >= 0 && at < found->rows.size() ? &found->rows[at] : nullptr;
}

MenuHandle DeskMenus::MenuOf(Window window) {
  const WindowNode* node = desk_.windows().impl().tree.Find(window);
  const MenuHandle bar = node ? node->menuBar : MenuHandle{};
  return Reach(bar) ? bar : MenuHandle{};
}

int DeskMenus::Count(MenuHandle menu) {
  const Menu* found = Reach(menu);
  return found ? static_cast<int>(found->rows.size()) : -1;
}

MenuHandle DeskMenus::SubMenu(MenuHandle menu, int position) {
  const Row* row = RowAt(menu, position);
  return row ? row->sub : MenuHandle{};
}

std::uint32_t DeskMenus::IdAt(MenuHandle menu, int position) {
  const Row* row = RowAt(menu, position);
  if (!row || row->sub) return kNone;
  return row->flags & menu_flag::kSeparator ? 0 : row->id;
}

std::string DeskMenus::TextAt(MenuHandle menu, int position) {
  const Row* row = RowAt(menu, position);
  return row ? row->text : std::string();
}

std::uint32_t DeskMenus::StateAt(MenuHandle menu, int position) {
  const Row* row = RowAt(menu, position);
  return row ? row->flags : kNone;
}

MenuHandle DeskMenus::CreatePopup() {
  const MenuHandle menu{next_};
  next_ += 2;
  menus_.emplace(menu.value, Menu{.process = desk_.Current(), .rows = {}});
  return menu;
}

void DeskMenus::MarkAttached(MenuHandle menu) {
  if (Menu* found = Find(menu)) found->attached = true;
}

void DeskMenus::Free(MenuHandle menu) {
  const auto it = menus_.find(menu.value);
  if (it == menus_.end()) return;
  const Menu freed = std::move(it->second);
  menus_.erase(it);
  for (const Row& row : freed.rows) Free(row.sub);
}

void DeskMenus::Destroy(MenuHandle menu) {
  const Menu* found = Find(menu);
  if (found && !found->attached) Free(menu);
}

bool DeskMenus::Holds(MenuHandle menu, MenuHandle part) {
  if (menu == part) return true;
  const Menu* found = Find(menu);
  return found && std::any_of(found->rows.begin(), found->rows.end(),
                              [&](const Row& row) { return row.sub && Holds(row.sub, part); });
}

DeskMenus::Place DeskMenus::LocateCommand(MenuHandle menu, std::uint32_t id) {
  Menu* found = Reach(menu);
  if (!found) return {};
  for (std::size_t i = 0; i < found->rows.size(); ++i) {
    const Row& row = found->rows[i];
    if (!row.sub && row.id == id) return {found, i};
    if (const Place below = LocateCommand(row.sub, id); below.menu) return below;
  }
  return {};
}

DeskMenus::Place DeskMenus::Locate(MenuHandle menu, int at, std::uint32_t flags) {
  if (!(flags & menu_flag::kByPosition)) return LocateCommand(menu, static_cast<std::uint32_t>(at));
  return RowAt(menu, at) ? Place{Find(menu), static_cast<std::size_t>(at)} : Place{};
}

bool DeskMenus::Insert(MenuHandle menu, int at, std::uint32_t flags, std::uint32_t id,
                       MenuHandle sub, std::string_view text) {
  Menu* named = Reach(menu);
  if (!named) return false;
  if (!(flags & menu_flag::kPopup)) sub = {};
  Menu* subMenu = Find(sub);
  if ((flags & menu_flag::kPopup) && (!subMenu || subMenu->attached || Holds(sub, menu)))
    return false;
  Place place = at == -1 ? Place{} : Locate(menu, at, flags);
  if (!place.menu) place = {named, named->rows.size()};
  if (subMenu) subMenu->attached = true;
  place.menu->rows.insert(place.menu->rows.begin() + static_cast<std::ptrdiff_t>(place.position),
                          {id, flags & kKeptFlags, sub, RowText(flags, text)});
  return true;
}

bool DeskMenus::Modify(MenuHandle menu, int at, std::uint32_t flags, std::uint32_t id,
                       std::string_view text) {
  const Place place = Locate(menu, at, flags);
  if (!place.menu) return false;
  Row& row = place.menu->rows[place.position];
  const bool keepsSub = row.sub && (flags & menu_flag::kPopup);
  const MenuHandle lost = keepsSub ? MenuHandle{} : row.sub;
  const std::uint32_t kept = keepsSub ? kKeptFlags : kKeptFlags & ~menu_flag::kPopup;
  row = {id, flags & kept, keepsSub ? row.sub : MenuHandle{}, RowText(flags, text)};
  Free(lost);
  return true;
}

bool DeskMenus::Delete(MenuHandle menu, int at, std::uint32_t flags) {
  const Place place = Locate(menu, at, flags);
  if (!place.menu) return false;
  const auto row = place.menu->rows.begin() + static_cast<std::ptrdiff_t>(place.position);
  const MenuHandle sub = row->sub;
  place.menu->rows.erase(row);
  Free(sub);
  return true;
}

std::uint32_t DeskMenus::TrackPopup(MenuHandle menu, Window owner) {
  if (!Find(menu) || !desk_.windows().Exists(owner)) return 0;
  const auto prompt = std::make_shared<Prompt>();
  prompt->kind = Prompt::Kind::kPopup;
  prompt->menu = menu;
  struct Open {
    std::vector<std::shared_ptr<Prompt>>& prompts;
    std::shared_ptr<Prompt> prompt;
    ~Open() { std::erase(prompts, prompt); }
  } const open{desk_.Prompts(), prompt};
  open.prompts.push_back(prompt);
  while (!prompt->answered && Find(menu) && desk_.windows().Exists(owner))
    desk_.impl().scheduler->Pump({"the pop-up menu", WaitFor::kUser});
  return prompt->answered ? prompt->row : 0;
}

int DeskMenus::LooseMenus(ProcessId process) const {
  return static_cast<int>(std::count_if(menus_.begin(), menus_.end(), [&](const auto& entry) {
    return entry.second.process == process && !entry.second.attached;
  }));
}

// What it has put into the menus of others goes with it, too.
void DeskMenus::Drop(ProcessId process) {
  std::vector<MenuHandle> guests;
  const auto isGuest = [&](const Row& row) {
    const Menu* const sub = Find(row.sub);
    if (sub && sub->process == process) guests.push_back(row.sub);
    return sub && sub->process == process;
  };
  for (auto& [value, menu] : menus_)
    if (menu.process != process) std::erase_if(menu.rows, isGuest);
  for (const MenuHandle guest : guests) Free(guest);
  std::vector<MenuHandle> loose;
  for (const auto& [value, menu] : menus_)
    if (menu.process == process && !menu.attached) loose.push_back({value});
  for (const MenuHandle menu : loose) Free(menu);
}

}  // namespace corvel::desk
