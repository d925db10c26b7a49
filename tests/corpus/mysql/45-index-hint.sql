SELECT id FROM users USE INDEX (idx_name) WHERE name = 'x'
