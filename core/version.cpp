namespace {

// For people with a library and no package: strings libkova-datamodel.so | grep kova-datamodel
[[gnu::used]] constexpr char kVersion[] = "kova-datamodel " KOVA_VERSION;

}  // namespace
