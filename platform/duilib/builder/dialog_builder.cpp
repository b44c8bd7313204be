#include "platform/duilib/builder/dialog_builder.h"

#include <memory>
#include <stdexcept>
#include <string>

#include "common/file.h"
#include "common/log.h"
#include "common/path_text.h"
#include "common/text.h"
#include "common/xml_document.h"
#include "platform/duilib/builder/attributes.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/tree/paint_manager.h"
#include "platform/os/paths.h"

namespace DuiLib {
namespace {

using common::XmlElement;
using Part = rapidxml::xml_base<char>;
using Attribute = rapidxml::xml_attribute<char>;

constexpr int kMostControls = 10'000;

void Warn(const std::string& line) {
  COMMON_LOG_WARN(log4cxx::Logger::getLogger("orv.duilib"), line);
}

std::wstring Name(const Part& part) {
  return common::Utf8ToWide({part.name(), part.name_size()});
}

std::string NarrowName(const Part& part) {
  return {part.name(), part.name_size()};
}

std::string NarrowValue(const Part& part) {
  return {part.value(), part.value_size()};
}

std::wstring Value(const Part& part) {
  return common::Utf8ToWide(NarrowValue(part));
}

// Builds the controls of one document. Elements are nested as deep as the document reader allows.
class TreeBuilder {
 public:
  TreeBuilder(const common::XmlDocument& ofDocument, const BuilderCallback& withCallback,
              CPaintManagerUI* forManager)
      : document(ofDocument), callback(withCallback), manager(forManager) {}

  std::unique_ptr<CControlUI> Build(const XmlElement& element) {
    if (++controls > kMostControls) {
      throw std::runtime_error(document.Place(element) + "more than 10,000 elements");
    }
    std::unique_ptr<CControlUI> control = Make(element);
    if (!control) {
      Warn(document.Place(element) + "unknown element <" + NarrowName(element) + ">");
      return nullptr;
    }
    SetAttributes(*control, element);
    CheckResources(*control, element);
    BuildChildren(*control, element);
    return control;
  }

 private:
  std::unique_ptr<CControlUI> Make(const XmlElement& element) const {
    const std::wstring className = Name(element);
    std::unique_ptr<CControlUI> control(MakeControl(className));
    if (!control && callback) control.reset(callback(className));
    return control;
  }

  // Those of a style come first, so that the element's own hold.
  void SetAttributes(CControlUI& control, const XmlElement& element) const {
    if (const auto* const style = element.first_attribute("style")) SetStyle(control, *style);
    for (auto attribute = element.first_attribute(); attribute != nullptr;
         attribute = attribute->next_attribute()) {
      const std::wstring name = Name(*attribute);
      if (name == L"style") continue;
      SetAttributeOf(control, name, Value(*attribute), document.Place(*attribute));
    }
  }

  void SetStyle(CControlUI& control, const Attribute& attribute) const {
    if (manager == nullptr) return;
    const std::string where = document.Place(attribute);
    const NamedAttributes* const style = manager->GetTheme().FindStyle(Value(attribute));
    if (style == nullptr) return Warn(where + "unknown style " + NarrowValue(attribute));
    for (const auto& [name, value] : *style) {
      SetAttributeOf(control, name, value, where + "style " + NarrowValue(attribute) + ": ");
    }
  }

  static void SetAttributeOf(CControlUI& control, const std::wstring& name,
                             const std::wstring& value, const std::string& where) {
    const AttributeResult result = SetAttribute(control, name, value);
    if (result == AttributeResult::kSet) return;
    const std::string narrowName = common::WideToUtf8(name);
    if (result == AttributeResult::kUnknown) return Warn(where + "unknown attribute " + narrowName);
    Warn(where + "'" + common::WideToUtf8(value) + "' is no value of " + narrowName);
  }

  // What the manager would not find when it paints.
  void CheckResources(const CControlUI& control, const XmlElement& element) const {
    if (manager == nullptr) return;
    const Style& style = control.GetStyle();
    for (const auto* looks : {&style.looks, &style.selectedLooks}) {
      for (const Look& look : *looks) CheckLook(look, element);
    }
    const auto* const label = dynamic_cast<const CLabelUI*>(&control);
    if (label != nullptr && label->GetFont() != 0 && !manager->GetTheme().HasFont(label->GetFont()))
      Warn(document.Place(element) + "unknown font " + std::to_string(label->GetFont()));
  }

  void CheckLook(const Look& look, const XmlElement& element) const {
    if (look.image) manager->CheckImage(*look.image, document.Place(element));
    for (const auto* colour :
         {&look.background, &look.gradientEnd, &look.tint, &look.border, &look.text}) {
      if (!*colour || (*colour)->Name().empty()) continue;
      if (manager->GetTheme().HasColour((*colour)->Name())) continue;
      Warn(document.Place(element) + "unknown colour " + common::WideToUtf8((*colour)->Name()));
    }
  }

  void BuildChildren(CControlUI& control, const XmlElement& element) {
    auto* const container = dynamic_cast<CContainerUI*>(&control);
    for (auto child = element.first_node(); child != nullptr; child = child->next_sibling()) {
      if (child->type() != rapidxml::node_element) continue;
      std::unique_ptr<CControlUI> built = Build(*child);
      if (!built) continue;
      if (container != nullptr) {
        container->Add(built.release());
      } else {
        Warn(document.Place(*child) + "<" + NarrowName(element) + "> holds no other controls");
      }
    }
  }

  const common::XmlDocument& document;
  const BuilderCallback& callback;
  CPaintManagerUI* const manager;
  int controls = 0;
};

std::filesystem::path SkinFile(const CDuiString& name, const CPaintManagerUI* manager) {
  if (manager != nullptr) return manager->GetSkinFile(name);
  return os::InstallationFolder() / "res" / common::BackslashPath(common::WideToUtf8(name));
}

std::unique_ptr<CControlUI> Build(std::string_view xml, const std::string& name,
                                  const BuilderCallback& callback, CPaintManagerUI* manager) {
  const common::XmlDocument document(xml, name);
  const XmlElement* root = document.Root();
  while (root != nullptr && root->type() != rapidxml::node_element) root = root->next_sibling();
  if (root == nullptr) throw std::runtime_error(name + ": there is no element");
  return TreeBuilder(document, callback, manager).Build(*root);
}

}  // namespace

CControlUI* CDialogBuilder::Create(const CDuiString& source, const BuilderCallback& callback,
                                   CPaintManagerUI* manager, CContainerUI* parent) {
  std::unique_ptr<CControlUI> tree;
  try {
    if (source.starts_with(L'<')) {
      tree = Build(common::WideToUtf8(source), "layout", callback, manager);
    } else {
      const auto file = SkinFile(source, manager);
      tree = Build(common::ReadFile(file, common::kMaxXmlSize), common::PathText(file), callback,
                   manager);
    }
  } catch (const std::runtime_error& error) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.duilib"), error.what());
    return nullptr;
  }
  CControlUI* const root = tree.release();
  if (parent != nullptr) parent->Add(root);
  return root;
}

}  // namespace DuiLib
