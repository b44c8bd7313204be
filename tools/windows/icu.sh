# ICU: common and i18n. The data file lies in share/icu.
source_package=icu
version=72.1
sha256=a2d2d38217092a7ed56635e34467f92f976b370e20182ad325edea6681a71d68

build() { cmake_install "$recipes/icu" -DICU_SOURCE="$src/source"; }
