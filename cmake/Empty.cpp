// SPDX-License-Identifier: Apache-2.0
// A library made of object targets alone still needs a source of its own.
