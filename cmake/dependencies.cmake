# Everything comes from Debian packages: tools/install_packages.sh names them.
find_package(Freetype REQUIRED)
find_package(Fontconfig REQUIRED)
find_package(PNG REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(TURBOJPEG REQUIRED IMPORTED_TARGET libturbojpeg)
find_package(Threads REQUIRED)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
