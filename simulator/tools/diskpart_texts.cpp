#include "simulator/tools/diskpart_texts.h"

#include <algorithm>
#include <utility>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/server.h"
#include "simulator/tools/columns.h"

namespace simulator {
namespace {

using Text = std::pair<std::string_view, std::string_view>;  // in English, in another language

constexpr LANGID kSimplifiedChinese = 2052;
constexpr size_t kSizeWidth = 7;

constexpr std::string_view kNames[] = {
    kOldDiskHeading,
    kDiskHeading,
    kVolumeHeading,
    "Microsoft DiskPart version ",
    "On computer: ",
    "Disk",
    "Online",
    "Offline",
    "No Media",
    "B",
    "KB",
    "MB",
    "GB",
    "TB",
    "PB",
    "Disk {} is now the selected disk.",
    "Disk ID: ",
    "Type   : ",
    "Status : ",
    "Path   : ",
    "Target : ",
    "LUN ID : ",
    "Location Path : ",
    "Current Read-only State : ",
    "Read-only  : ",
    "Boot Disk  : ",
    "Pagefile Disk  : ",
    "Hibernation File Disk  : ",
    "Crashdump Disk  : ",
    "Clustered Disk  : ",
    "Yes",
    "No",
    "There are no volumes.",
    "Volume",
    "Partition",
    "Removable",
    "Simple",
    "Spanned",
    "Healthy",
    "Boot",
    "System",
    "Hidden",
};

// The lines below the headings' first ones.
constexpr Text kEnglishHeadings[] = {
    {kOldDiskHeading, "\n--------  ----------  -------  -------  ---  ---"},
    {kDiskHeading, "\n--------  -------------  -------  -------  ---  ---"},
    {kVolumeHeading,
     "\n----------  ---  -----------  -----  ----------  -------  ---------  --------"},
};

constexpr Text kGerman[] = {
    {"Microsoft DiskPart version ", "Microsoft DiskPart-Version "},
    {"On computer: ", "Auf Computer: "},
    {kDiskHeading,
     "Datenträger ###  Status         Größe    Frei     Dyn  GPT\n"
     "---------------  -------------  -------  -------  ---  ---"},
    {"Disk", "Datenträger"},
};

constexpr Text kSpanish[] = {
    {"Microsoft DiskPart version ", "Microsoft DiskPart versión "},
    {"On computer: ", "En el equipo: "},
    {kDiskHeading,
     "Núm Disco  Estado      Tamaño   Disp     Din  Gpt\n"
     "---------- ----------  -------  -------  ---  ---"},
    {"Disk", "Disco"},
    {"Online", "En línea"},
    {"Disk {} is now the selected disk.", "El disco {} es ahora el disco seleccionado."},
    {"Disk ID: ", "Id. de disco: "},
    {"Type   : ", "Tipo        : "},
    {"Status : ", "Estado : "},
    {"Path   : ", "Ruta        : "},
    {"Target : ", "Destino     : "},
    {"LUN ID : ", "Id. de LUN  : "},
    {"Location Path : ", "Ruta de la ubicación: "},
    {"Current Read-only State : ", "Estado de solo lectura actual: "},
    {"Read-only  : ", "Solo lectura       : "},
    {"Boot Disk  : ", "Disco de arranque  : "},
    {"Pagefile Disk  : ", "Disco de archivo de paginación  : "},
    {"Hibernation File Disk  : ", "Disco de archivo de hibernación  : "},
    {"Crashdump Disk  : ", "Disco de volcado  : "},
    {"Clustered Disk  : ", "Disco en clúster: "},
    {kVolumeHeading,
     "Núm Volumen Ltr  Etiqueta     Fs     Tipo        Tamaño   Estado     Info    \n"
     "----------- ---  -----------  -----  ----------  -------  ---------  --------"},
    {"Volume", "Volumen"},
    {"Partition", "Partición"},
    {"Healthy", "Correcto"},
    {"Hidden", "Oculto"},
};

// No capture shows sizes in M or T octets; they are as those that are.
constexpr Text kFrench[] = {
    {kDiskHeading,
     "N° disque  Statut         Taille   Libre    Dyn  GPT\n"
     "---------  -------------  -------  -------  ---  ---"},
    {"Disk", "Disque"},
    {"Online", "En ligne"},
    {"B", "octets"},
    {"KB", "K octets"},
    {"MB", "M octets"},
    {"GB", "G octets"},
    {"TB", "T octets"},
};

constexpr Text kJapanese[] = {
    {kDiskHeading,
     "ディスク      状態           サイズ   空き   ダイナ GPT\n"
     "###                                          ミック\n"
     "------------  -------------  -------  -------  ---  ---"},
    {"Disk", "ディスク"},
    {"Online", "オンライン"},
};

constexpr Text kKorean[] = {
    {kDiskHeading,
     "디스크 ###  상태           크기     사용 가능     Dyn  Gpt\n"
     "----------  -------------  -------  ------------  ---  ---"},
    {"Disk", "디스크"},
    {"Online", "온라인"},
};

constexpr Text kChinese[] = {
    {"Microsoft DiskPart version ", "Microsoft DiskPart 版本 "},
    {"On computer: ", "在计算机上: "},
    {kOldDiskHeading,
     "磁盘 ###  状态        大小     可用     动态 Gpt\n"
     "--------  ----------  -------  -------  ---  ---"},
    {kDiskHeading,
     "磁盘 ###  状态           大小     可用     Dyn  Gpt\n"
     "--------  -------------  -------  -------  ---  ---"},
    {"Disk", "磁盘"},
    {"Online", "联机"},
    {"Disk ID: ", "磁盘 ID: "},
    {"Type   : ", "类型   : "},
    {"Status : ", "状态 : "},
    {"Path   : ", "路径   : "},
    {"Target : ", "目标 : "},
    {"Location Path : ", "位置路径 : "},
    {"Current Read-only State : ", "当前只读状态: "},
    {"Read-only  : ", "只读: "},
    {"Boot Disk  : ", "启动磁盘: "},
    {"Pagefile Disk  : ", "页面文件磁盘: "},
    {"Hibernation File Disk  : ", "休眠文件磁盘: "},
    {"Crashdump Disk  : ", "故障转储磁盘: "},
    {"Clustered Disk  : ", "群集磁盘  : "},
    {"No", "否"},
    {kVolumeHeading,
     "卷 ###      LTR  标签         FS     类型        大小     状态       信息    \n"
     "----------  ---  -----------  -----  ----------  -------  ---------  --------"},
    {"Volume", "卷    "},
    {"Partition", "磁盘分区"},
    {"Removable", "可移动"},
    {"Healthy", "正常"},
};

const Text* FindText(std::span<const Text> texts, std::string_view english) {
  const auto found = std::ranges::find(texts, english, &Text::first);
  return found == texts.end() ? nullptr : &*found;
}

bool IsOld(const System& system) { return system.major_version < 6; }

bool IsBefore62(const System& system) {
  return IsOld(system) || (system.major_version == 6 && system.minor_version < 2);
}

}  // namespace

struct DiskpartTexts::Language {
  WORD primary;  // the low bits of a LANGID
  std::span<const Text> texts;
  size_t old_status_width = 10;  // before Windows 6.0
  size_t status_width_before_6_2 = 13;
  size_t status_width = 13;
  size_t free_width = kSizeWidth;
  size_t volume_number_width = 3;
};

const DiskpartTexts::Language* DiskpartTexts::Find(const System& system) {
  // Where a column is narrower than its heading, the real tool's is.
  static constexpr Language kEnglish{.primary = 0x09, .texts = {}};
  static constexpr Language kLanguages[] = {
      {.primary = 0x07, .texts = kGerman},
      {.primary = 0x0A, .texts = kSpanish, .status_width_before_6_2 = 10, .volume_number_width = 2},
      {.primary = 0x0C, .texts = kFrench},
      {.primary = 0x11, .texts = kJapanese},
      {.primary = 0x12, .texts = kKorean, .status_width = 8, .free_width = 12},
      {.primary = 0x04, .texts = kChinese, .old_status_width = 8},
  };
  constexpr LANGID kPrimaryBits = 0x3FF;
  const auto* const found = std::ranges::find(
      kLanguages, static_cast<WORD>(system.language & kPrimaryBits), &Language::primary);
  if (found == std::end(kLanguages)) return &kEnglish;
  const bool is_other_chinese =
      found->texts.data() == kChinese && system.language != kSimplifiedChinese;
  return is_other_chinese ? &kEnglish : found;
}

DiskpartTexts::DiskpartTexts(const System& system) : system_(system), language_(Find(system)) {}

std::string DiskpartTexts::Of(std::string_view english) const {
  if (std::ranges::find(kNames, english) == std::end(kNames)) {
    Unsupported("diskpart: the text " + std::string(english));
  }
  const auto given = system_.disk_tool_texts.find(std::string(english));
  if (given != system_.disk_tool_texts.end()) return given->second;
  if (const Text* const text = FindText(language_->texts, english)) {
    return std::string(text->second);
  }
  const Text* const below = FindText(kEnglishHeadings, english);
  return std::string(english) + std::string(below == nullptr ? "" : below->second);
}

std::string DiskpartTexts::Size(uint64_t bytes) const {
  const std::string english = RightColumn(SizeText(bytes), kSizeWidth);
  const size_t unit = english.rfind(' ') + 1;
  return english.substr(0, unit) + Of(std::string_view(english).substr(unit));
}

size_t DiskpartTexts::StatusWidth() const {
  if (IsOld(system_)) return language_->old_status_width;
  return IsBefore62(system_) ? language_->status_width_before_6_2 : language_->status_width;
}

size_t DiskpartTexts::FreeWidth() const { return language_->free_width; }

size_t DiskpartTexts::VolumeNumberWidth() const { return language_->volume_number_width; }

std::span<const std::string_view> DiskpartTexts::Names() { return kNames; }

}  // namespace simulator
