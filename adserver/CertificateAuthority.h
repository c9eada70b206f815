// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>

#include <memory>

namespace velmora::adserver {

/// A server's own certificate and private key, both as PEM. Empty when making them failed.
struct Identity {
    QByteArray certificatePem;
    QByteArray keyPem;
};

/// A certificate authority made on the spot, for one process run, with a fresh EC P-256 key that
/// never leaves memory. Every instance has a subject name of its own, so several can be trusted
/// side by side, and a leaf of one is refused by a client that trusts only another.
///
/// Making the authority or a leaf takes a few milliseconds. All members may be called from any
/// thread; nothing changes after construction. If libcrypto fails (no entropy, no memory), the
/// results are empty and a server given them refuses to start.
class CertificateAuthority {
public:
    CertificateAuthority();
    ~CertificateAuthority();
    CertificateAuthority(const CertificateAuthority &) = delete;
    CertificateAuthority &operator=(const CertificateAuthority &) = delete;

    /// The authority's certificate, to be added to what a client trusts. Valid from yesterday for
    /// a year.
    QByteArray caPem() const;

    /// A leaf for "localhost" and 127.0.0.1, valid from yesterday for a year.
    Identity validLeaf() const;

    /// Like validLeaf(), but its validity ended an hour ago.
    Identity expiredLeaf() const;

    /// A leaf that is in date but names "elsewhere.example" only, as alternative name and as
    /// common name (some clients accept either).
    Identity wrongHostLeaf() const;

private:
    class Private;
    std::unique_ptr<Private> m_d;
};

} // namespace velmora::adserver
