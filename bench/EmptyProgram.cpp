// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The least that a program with the libraries of the commands takes to start and end.

int main() {
    return 0;
}
