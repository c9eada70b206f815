// SPDX-License-Identifier: Apache-2.0
// CMake requires at least one source file of a library that otherwise links object libraries only.
