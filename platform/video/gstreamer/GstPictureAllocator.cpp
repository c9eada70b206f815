// SPDX-License-Identifier: Apache-2.0
#include "GstPictureAllocator.h"

namespace velmora {

namespace {

struct PictureAllocator {
    GstAllocator base;
    PictureMemory *memory;
};

struct PictureAllocatorClass {
    GstAllocatorClass base;
};

struct PictureBlock {
    GstMemory base;
    void *pixels;
};

GstMemory *allocate(GstAllocator *allocator, gsize size, GstAllocationParams *parameters) {
    const gsize whole = size + parameters->prefix + parameters->padding;
    void *pixels = reinterpret_cast<PictureAllocator *>(allocator)->memory->allocate(whole);
    if (!pixels)
        return gst_allocator_alloc(nullptr, size, parameters);
    auto *block = new PictureBlock{};
    block->pixels = pixels;
    gst_memory_init(&block->base, GST_MEMORY_FLAG_NO_SHARE, allocator, nullptr, whole,
                    parameters->align, parameters->prefix, size);
    return &block->base;
}

void release(GstAllocator *allocator, GstMemory *memory) {
    auto *block = reinterpret_cast<PictureBlock *>(memory);
    reinterpret_cast<PictureAllocator *>(allocator)->memory->release(block->pixels);
    delete block;
}

void *map(GstMemory *memory, gsize, GstMapFlags) {
    return reinterpret_cast<PictureBlock *>(memory)->pixels;
}

void unmap(GstMemory *) {}

void initialiseClass(gpointer type, gpointer) {
    auto *allocator = GST_ALLOCATOR_CLASS(type);
    allocator->alloc = allocate;
    allocator->free = release;
}

void initialise(GTypeInstance *instance, gpointer) {
    auto *allocator = reinterpret_cast<GstAllocator *>(instance);
    allocator->mem_type = "VelmoraPicture";
    allocator->mem_map = map;
    allocator->mem_unmap = unmap;
}

GType pictureAllocatorType() {
    static const GType type = g_type_register_static_simple(
        GST_TYPE_ALLOCATOR, "VelmoraPictureAllocator", sizeof(PictureAllocatorClass),
        initialiseClass, sizeof(PictureAllocator), initialise, GTypeFlags(0));
    return type;
}

} // namespace

GstPointer<GstAllocator> makeGstPictureAllocator(PictureMemory *memory) {
    auto *allocator =
        static_cast<PictureAllocator *>(g_object_new(pictureAllocatorType(), nullptr));
    allocator->memory = memory;
    gst_object_ref_sink(allocator);
    return GstPointer<GstAllocator>(&allocator->base);
}

} // namespace velmora
